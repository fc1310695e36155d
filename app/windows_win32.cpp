#include "app/windows_win32.h"

#include "app/resource_ids.h"
#include "support/utf.h"

namespace ravelin {

namespace {

Rect toRect(const RECT& r) {
    return {r.left, r.top, r.right, r.bottom};
}

void setIcon(HWND window, WPARAM which, WORD resource, int cxMetric, int cyMetric) {
    // Shared: the system keeps the icon as long as a window shows it and frees it with the process.
    const HANDLE icon =
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource), IMAGE_ICON,
                   GetSystemMetrics(cxMetric), GetSystemMetrics(cyMetric), LR_SHARED);
    if (icon == nullptr) return;
    SendMessageW(window, WM_SETICON, which, reinterpret_cast<LPARAM>(icon));
}

void takeForeground(HWND window) {
    BringWindowToTop(window);
    SetForegroundWindow(window);
    SetFocus(window);
}

}  // namespace

HWND findWindowByTitle(std::string_view title) {
    return FindWindowW(nullptr, widen(title).c_str());
}

std::string windowTitle(HWND window) {
    const int length = window != nullptr ? GetWindowTextLengthW(window) : 0;
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    return narrow({text.data(), static_cast<std::size_t>(copied)});
}

std::optional<Rect> windowRectangle(HWND window) {
    RECT rectangle{};
    if (window == nullptr || GetWindowRect(window, &rectangle) == 0) return std::nullopt;
    return toRect(rectangle);
}

std::optional<Monitor> describeMonitor(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (monitor == nullptr || GetMonitorInfoW(monitor, &info) == 0) return std::nullopt;
    return Monitor{toRect(info.rcMonitor), toRect(info.rcWork)};
}

void setWindowIcons(HWND window) {
    if (window == nullptr) return;
    setIcon(window, ICON_BIG, RAVELIN_ICON_LARGE, SM_CXICON, SM_CYICON);
    setIcon(window, ICON_SMALL, RAVELIN_ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
}

void setAlwaysOnTop(HWND window, bool on) {
    if (window == nullptr) return;
    SetWindowPos(window, on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

bool isAlwaysOnTop(HWND window) {
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

void bringToForeground(HWND window) {
    if (window == nullptr) return;
    const DWORD self = GetCurrentThreadId();
    const HWND foreground = GetForegroundWindow();
    const DWORD owner =
        foreground != nullptr ? GetWindowThreadProcessId(foreground, nullptr) : self;
    // Only the thread in the foreground may give the foreground away, so its input is shared for
    // the moment of the change.
    const bool attached = owner != 0 && owner != self && AttachThreadInput(self, owner, TRUE) != 0;
    takeForeground(window);
    if (!attached) return;
    AttachThreadInput(self, owner, FALSE);
    // Parting may take the foreground from both threads (Wine does so); then it is free to take.
    if (GetForegroundWindow() != window) SetForegroundWindow(window);
}

void activateWindow(HWND window) {
    if (window == nullptr) return;
    if (IsIconic(window) != 0) ShowWindow(window, SW_RESTORE);
    bringToForeground(window);
}

void resizeWindow(HWND window, std::int32_t width, std::int32_t height,
                  const std::function<void(std::int32_t, std::int32_t)>& setContentSize) {
    if (window == nullptr) return;
    const ResizableWindow resizable{
        .setContentSize = setContentSize,
        .rectangle = [window] { return windowRectangle(window); },
        .moveTo =
            [window](std::int32_t left, std::int32_t top) {
                SetWindowPos(window, nullptr, left, top, 0, 0,
                             SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            },
    };
    const auto monitor = describeMonitor(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
    resizeWithinScreen(resizable, monitor, GetSystemMetrics(SM_CYSCREEN), width, height);
}

}  // namespace ravelin
