#include "app/main_window_win32.h"

#include <utility>

#include "app/window_subclass_win32.h"
#include "app/windows_win32.h"

namespace ravelin {

namespace {

std::optional<WindowPlacement> currentPlacement(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(window, &placement) == 0) return std::nullopt;
    const RECT& normal = placement.rcNormalPosition;
    Rect rectangle{normal.left, normal.top, normal.right, normal.bottom};
    const auto monitor = describeMonitor(MonitorFromRect(&normal, MONITOR_DEFAULTTONEAREST));
    if (monitor) rectangle = fromWorkspace(rectangle, *monitor);
    return WindowPlacement{.x = rectangle.left,
                           .y = rectangle.top,
                           .width = rectangle.width(),
                           .height = rectangle.height(),
                           .maximized = placement.showCmd == SW_SHOWMAXIMIZED,
                           .saved = true};
}

void restorePlacement(HWND window, const WindowPlacement& saved) {
    const HMONITOR monitor = MonitorFromPoint({saved.x, saved.y}, MONITOR_DEFAULTTONULL);
    const auto rectangle = startRectangle(saved, describeMonitor(monitor));
    if (!rectangle) return;
    SetWindowPos(window, nullptr, rectangle->left, rectangle->top, rectangle->width(),
                 rectangle->height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

// A placement that cannot be stored is lost; the window goes on.
void storeFromNowOn(HWND window, StorePlacement store) {
    subclassWindow(window, [window, store = std::move(store)](UINT message) {
        if (message != WM_EXITSIZEMOVE && message != WM_DESTROY) return false;
        if (const auto placement = currentPlacement(window)) store(*placement);
        return false;
    });
}

}  // namespace

void startMainWindow(HWND window, const MainWindowStart& start, StorePlacement store) {
    if (window == nullptr) return;
    restorePlacement(window, start.placement);
    storeFromNowOn(window, std::move(store));
    if (start.placement.maximized && !start.startMinimized) ShowWindow(window, SW_SHOWMAXIMIZED);
    if (start.alwaysOnTop) setAlwaysOnTop(window, true);
    if (start.startMinimized) {
        ShowWindow(window, SW_MINIMIZE);
    } else {
        bringToForeground(window);
    }
}

}  // namespace ravelin
