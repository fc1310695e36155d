// The placement of the main window: restored at start-up, stored whenever it may have changed.
#pragma once

#include <windows.h>

#include <functional>

#include "app/window_placement.h"

namespace ravelin {

struct MainWindowStart {
    WindowPlacement placement{};
    bool alwaysOnTop = false;
    bool startMinimized = false;
};

using StorePlacement = std::function<void(const WindowPlacement&)>;

// Puts the main window where it was, on a monitor that is still there and no larger than its work
// area, and shows it as the settings say; otherwise it keeps the place it has. From then on `store`
// gets the placement at the end of every move or size by the user and when the window is destroyed,
// on the window's thread. Called once, on that thread. A null window is ignored.
void startMainWindow(HWND window, const MainWindowStart& start, StorePlacement store);

}  // namespace ravelin
