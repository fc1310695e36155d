#include "app/main_window_win32.h"

#include <functional>
#include <optional>
#include <utility>

#include "app/composition_win32.h"
#include "app/panels_on_top_win32.h"
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

HMONITOR monitorAt(std::int32_t x, std::int32_t y) {
    return MonitorFromPoint({x, y}, MONITOR_DEFAULTTONULL);
}

// The monitor of the saved corner. That may lie outside of every monitor by the window's invisible
// border, as of a window that was put to the left edge of the screen.
std::optional<Monitor> savedMonitor(HWND window, const WindowPlacement& saved) {
    HMONITOR monitor = monitorAt(saved.x, saved.y);
    if (monitor == nullptr) {
        const Border border = invisibleBorder(window);
        if (border.left != 0 || border.top != 0)
            monitor = monitorAt(saved.x + border.left, saved.y + border.top);
    }
    return describeMonitor(monitor);
}

void restorePlacement(HWND window, const WindowPlacement& saved) {
    const auto rectangle = startRectangle(saved, savedMonitor(window, saved));
    if (!rectangle) return;
    SetWindowPos(window, nullptr, rectangle->left, rectangle->top, rectangle->width(),
                 rectangle->height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

void tell(const std::function<void()>& event) {
    if (event) event();
}

void storePlacement(HWND window, const MainWindowEvents& events) {
    const auto placement = currentPlacement(window);
    if (placement && events.store) events.store(*placement);
}

// Keeps panels above a main window that is kept on top, which a click into it would bring before
// them, and lets them go with it.
class PanelsOnTop {
  public:
    void see(HWND window, const WINDOWPOS& change) {
        if ((change.flags & SWP_NOZORDER) != 0) return;
        const bool wasOnTop = std::exchange(onTop_, isAlwaysOnTop(window));
        if (wasOnTop || onTop_) alignPanelsWith(window);
    }

  private:
    bool onTop_ = false;
};

// A placement that cannot be stored is lost; the window goes on.
void listen(HWND window, MainWindowEvents events) {
    subclassWindow(window, [window, events = std::move(events),
                            panels = PanelsOnTop()](const WindowMessage& message) mutable {
        if (events.follow) events.follow(message);
        if (message.id == WM_WINDOWPOSCHANGED)
            panels.see(window, *reinterpret_cast<const WINDOWPOS*>(message.lParam));
        if (message.id == WM_EXITSIZEMOVE || message.id == WM_DESTROY)
            storePlacement(window, events);
        if (message.id == WM_ENDSESSION && message.wParam != FALSE) {
            storePlacement(window, events);
            tell(events.sessionEnds);
        }
        if (message.id == WM_POWERBROADCAST && message.wParam == PBT_APMSUSPEND)
            tell(events.sleepBegins);
        return false;
    });
}

}  // namespace

void startMainWindow(HWND window, const MainWindowStart& start, MainWindowEvents events) {
    if (window == nullptr) return;
    restorePlacement(window, start.placement);
    listen(window, std::move(events));
    if (start.placement.maximized && !start.startMinimized) ShowWindow(window, SW_SHOWMAXIMIZED);
    if (start.alwaysOnTop) setAlwaysOnTop(window, true);
    if (start.startMinimized) {
        ShowWindow(window, SW_SHOWMINNOACTIVE);
    } else {
        bringToForeground(window);
    }
}

}  // namespace ravelin
