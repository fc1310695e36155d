#include "app/first_instance_win32.h"

#include "app/window_titles.h"
#include "app/windows_win32.h"

namespace ravelin {

namespace {

BOOL CALLBACK takeMainWindow(HWND window, LPARAM result) noexcept {
    try {
        if (!isMainWindowTitle(windowTitle(window))) return TRUE;
    } catch (...) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

}  // namespace

HWND findFirstInstanceWindow() {
    HWND window = nullptr;
    EnumWindows(takeMainWindow, reinterpret_cast<LPARAM>(&window));
    return window != nullptr ? window : findWindowByTitle(activationWindowTitle);
}

}  // namespace ravelin
