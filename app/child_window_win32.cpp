#include "app/child_window_win32.h"

#include <cmath>
#include <utility>

#include "app/environment_win32.h"
#include "app/panel_drag.h"
#include "app/window_subclass_win32.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"

namespace ravelin {

struct DraggedWindow {
    HWND window = nullptr;
    HWND mainWindow = nullptr;  // found at the beginning of the drag
    PanelDrag drag;
    PanelWindowEvents events;
};

namespace {

constexpr DWORD frameStyles =
    WS_DLGFRAME | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

DWORD styleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

void setFramelessStyle(HWND window) {
    const DWORD frameless = (styleOf(window) & ~frameStyles) | WS_POPUP | WS_BORDER;
    SetWindowLongPtrW(window, GWL_STYLE, static_cast<LONG_PTR>(frameless));
}

// The state of the moment may miss a press that this thread has seen (Wine does so), and this
// thread may have missed one that went to the view.
bool primaryButtonIsHeld() {
    const int button = GetSystemMetrics(SM_SWAPBUTTON) != 0 ? VK_RBUTTON : VK_LBUTTON;
    return GetAsyncKeyState(button) < 0 || GetKeyState(button) < 0;
}

void follow(DraggedWindow& dragged) {
    const auto cursor = platform::cursorPosition();
    if (!cursor) return;
    const auto step = dragged.drag.move(*cursor, windowRectangle(dragged.mainWindow));
    SetWindowPos(dragged.window, nullptr, step.corner.x, step.corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (step.hover) dragged.events.hover(*step.hover);
}

void finish(DraggedWindow& dragged, bool released) {
    const auto end = dragged.drag.end(released);
    ReleaseCapture();
    if (end.hoverEnds) dragged.events.hover(false);
    if (end.docks) dragged.events.dockBack();
}

// Whether the message ends here. What cannot be told to the main window is lost; the drag goes on.
bool ChildFramelessWndProc(DraggedWindow& dragged, UINT message) {
    if (!dragged.drag.dragging()) return false;
    if (message == WM_MOUSEMOVE) follow(dragged);
    if (message == WM_LBUTTONUP) finish(dragged, true);
    if (message == WM_CAPTURECHANGED) finish(dragged, false);
    return message == WM_MOUSEMOVE || message == WM_LBUTTONUP;
}

}  // namespace

ChildWindow::ChildWindow(HWND window, std::optional<platform::Point> corner,
                         PanelWindowEvents events)
    : state_(std::make_unique<DraggedWindow>()) {
    state_->window = window;
    state_->events = std::move(events);
    if (window == nullptr) return;
    setFramelessStyle(window);
    const auto at = corner.value_or(platform::Point{});
    const UINT inPlace = corner ? 0 : SWP_NOMOVE | SWP_NOSIZE;
    SetWindowPos(window, nullptr, at.x, at.y, childWidth, childHeight,
                 SWP_NOZORDER | SWP_FRAMECHANGED | inPlace);
    subclassWindow(window, [dragged = state_.get()](const WindowMessage& message) {
        if (dragged->events.follow) dragged->events.follow(message);
        return ChildFramelessWndProc(*dragged, message.id);
    });
}

ChildWindow::~ChildWindow() {
    unsubclassWindow(state_->window);
}

void ChildWindow::beginDrag() {
    const auto cursor = platform::cursorPosition();
    const auto rectangle = windowRectangle(state_->window);
    if (!cursor || !rectangle) return;
    state_->mainWindow = findWindowByTitle(mainWindowTitle);
    state_->drag.begin(*cursor, *rectangle);
    SetCapture(state_->window);
    // The page asks a moment after the press. When that was a quick click, its release has gone to
    // the view, and the window would hang on the cursor until the next one.
    if (!primaryButtonIsHeld()) finish(*state_, false);
}

void ChildWindow::setContentSize(std::int32_t width, std::int32_t height) {
    if (state_->window == nullptr) return;
    const double scale = windowScale(state_->window);
    const auto scaled = [scale](std::int32_t size) { return std::lround(size * scale); };
    RECT outer{0, 0, scaled(width), scaled(height)};
    AdjustWindowRectEx(&outer, styleOf(state_->window), FALSE, 0);
    SetWindowPos(state_->window, nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace ravelin
