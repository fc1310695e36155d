// The main window: its placement, restored at start-up and stored whenever it may have changed, and
// what the system tells it.
#pragma once

#include <windows.h>

#include <functional>

#include "app/window_placement.h"
#include "app/window_subclass_win32.h"

namespace ravelin {

struct MainWindowStart {
    WindowPlacement placement{};
    bool alwaysOnTop = false;
    bool startMinimized = false;
};

// What happens to the main window and matters to the program; on the window's thread. Empty ones
// are left out.
struct MainWindowEvents {
    // At the end of every move or size by the user, when the window is destroyed, and before
    // `sessionEnds`.
    std::function<void(const WindowPlacement&)> store;
    // The user logs off, or the system shuts down or wants the program gone. The process may be
    // ended as soon as this returns.
    std::function<void()> sessionEnds;
    // The system goes to sleep in a moment.
    std::function<void()> sleepBegins;
    // Sees every message before the window does.
    std::function<void(const WindowMessage&)> follow{};
};

// Puts the main window where it was, on a monitor that is still there and no larger than its work
// area, and shows it as the settings say; otherwise it keeps the place it has. A window that starts
// minimised never comes to the foreground. From then on its events are told. Called once, on the
// window's thread. A null window is ignored.
void startMainWindow(HWND window, const MainWindowStart& start, MainWindowEvents events);

}  // namespace ravelin
