// Windows of the web view with our own eyes on their messages.
#pragma once

#include <windows.h>

#include <functional>

namespace ravelin {

struct WindowMessage {
    UINT id = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// Sees every message first; true ends it there, and its result is 0.
using MessageHandler = std::function<bool(const WindowMessage& message)>;

// Puts the handler before the window's own procedure, until the window is gone or
// `unsubclassWindow`. One handler for each window, on the window's thread. False when the window is
// null or has one already.
//
// The system offers this as SetWindowSubclass, but the library of controls behind it takes longer
// to load than everything else that the program starts with, and no control of it is used.
bool subclassWindow(HWND window, MessageHandler handler);

// Takes the handler away again; nothing happens to a window that has none.
void unsubclassWindow(HWND window);

}  // namespace ravelin
