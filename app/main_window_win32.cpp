#include "app/main_window_win32.h"

#include <commctrl.h>

#include <memory>
#include <utility>

#include "app/windows_win32.h"

namespace ravelin {

namespace {

// Distinguishes this subclass from others of the same window.
constexpr UINT_PTR subclassId = 1;

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

LRESULT CALLBACK mainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                UINT_PTR id, DWORD_PTR data) noexcept {
    const auto* store = reinterpret_cast<const StorePlacement*>(data);
    if (message == WM_EXITSIZEMOVE || message == WM_DESTROY) {
        try {
            if (const auto placement = currentPlacement(window)) (*store)(*placement);
        } catch (...) {
            // A placement that cannot be stored is lost; the window goes on.
        }
    }
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, mainWindowProc, id);
        delete store;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

void restorePlacement(HWND window, const WindowPlacement& saved) {
    const HMONITOR monitor = MonitorFromPoint({saved.x, saved.y}, MONITOR_DEFAULTTONULL);
    const auto rectangle = startRectangle(saved, describeMonitor(monitor));
    if (!rectangle) return;
    SetWindowPos(window, nullptr, rectangle->left, rectangle->top, rectangle->width(),
                 rectangle->height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

void storeFromNowOn(HWND window, StorePlacement store) {
    auto owned = std::make_unique<StorePlacement>(std::move(store));
    const auto data = reinterpret_cast<DWORD_PTR>(owned.get());
    if (SetWindowSubclass(window, mainWindowProc, subclassId, data) != 0) {
        // The window procedure deletes it with the window.
        static_cast<void>(owned.release());
    }
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
