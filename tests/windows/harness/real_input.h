// Input that no program injected.
//
// Under Wine the X server's test extension sends keys, clicks and moves that reach the desktop like
// those of a real keyboard and mouse. On Windows itself there is no such way.
#pragma once

#include <windows.h>

#include <string_view>

namespace ravelin::test {

bool hasRealInput();

// Starts xdotool with the arguments, such as "key F6 key a". Several commands in one call are sent
// one after another; a test awaits what they cause.
void realInput(std::string_view commands);

// The same with keys that go to the window: the X server has a keyboard focus of its own, which
// Wine does not always move along with the foreground.
void realInput(HWND window, std::string_view commands);

}  // namespace ravelin::test
