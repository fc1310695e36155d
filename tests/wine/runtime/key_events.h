// Windows key messages in the terms of the DevTools protocol and of DOM key events.
#pragma once

#include <windows.h>

#include <string>

namespace ravelin::browser {

// The protocol's modifier bits from the keys that are down as of the current message; `mouseKeys`
// are the MK_ flags of a mouse message, or 0.
int keyModifiers(WPARAM mouseKeys);

struct KeyEvent {
    int virtualKey = 0;
    // The physical key ("KeyA", "ArrowLeft") and what it means now ("a", "A", "ArrowLeft").
    std::string code;
    std::string key;
    // 1 left, 2 right, 3 numeric keypad, 0 otherwise.
    int location = 0;
    bool repeated = false;
};

// Reads WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN or WM_SYSKEYUP.
KeyEvent readKeyMessage(WPARAM wide, LPARAM lng);

}  // namespace ravelin::browser
