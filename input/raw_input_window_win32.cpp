#include "input/raw_input_window_win32.h"

#include <optional>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/fence.h"
#include "input/input_hooks_win32.h"
#include "input/tool_settings.h"

namespace ravelin {

namespace {

// Mouse generic desktop device, as the HID usage tables number it.
constexpr USHORT genericDesktopPage = 1;
constexpr USHORT mouseUsage = 2;

bool recordsRawMotion() {
    return engine.recording && toolSettings.tmv && toolSettings.trel;
}

std::optional<RAWMOUSE> readMouse(HRAWINPUT handle) {
    RAWINPUT input{};
    UINT size = sizeof input;
    const UINT read = GetRawInputData(handle, RID_INPUT, &input, &size, sizeof(RAWINPUTHEADER));
    if (read == static_cast<UINT>(-1) || input.header.dwType != RIM_TYPEMOUSE) return std::nullopt;
    return input.data.mouse;
}

// Reports arrive up to thousands of times a second; one is read only when somebody wants it.
void onRawInput(HRAWINPUT handle) {
    const DWORD now = GetTickCount();
    std::optional<RAWMOUSE> mouse;
    if (recordsRawMotion() || hookWatch.wantsRawMouse(now)) mouse = readMouse(handle);
    hookWatch.onRawMouse(now, mouse && (mouse->lLastX != 0 || mouse->lLastY != 0));
    if (mouse && (mouse->usFlags & MOUSE_MOVE_ABSOLUTE) == 0)
        onRawMotion(mouse->lLastX, mouse->lLastY);
}

void onSessionChange(WPARAM reason) {
    if (reason == WTS_CONSOLE_DISCONNECT || reason == WTS_REMOTE_DISCONNECT ||
        reason == WTS_SESSION_LOCK) {
        onSessionLeft();
    }
}

LRESULT CALLBACK rawInputWindowProc(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept {
    // An event that cannot be recorded is lost; the thread lives on.
    runFenced([&] {
        if (message == WM_INPUT) onRawInput(reinterpret_cast<HRAWINPUT>(lParam));
        if (message == WM_WTSSESSION_CHANGE) onSessionChange(wParam);
    });
    // Raw input too: the default procedure frees it.
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

RawInputWindow::RawInputWindow() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = rawInputWindowProc;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = rawInputWindowClass;
    class_.reset(RegisterClassExW(&description));
    window_.reset(CreateWindowExW(0, rawInputWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  description.hInstance, nullptr));
    if (!window_) return;

    const RAWINPUTDEVICE mouse{genericDesktopPage, mouseUsage, RIDEV_INPUTSINK, window_.get()};
    RegisterRawInputDevices(&mouse, 1, sizeof mouse);
    askForSessionNews();
}

void RawInputWindow::askForSessionNews() {
    if (notification_ || !window_) return;
    if (WTSRegisterSessionNotification(window_.get(), NOTIFY_FOR_THIS_SESSION) != 0)
        notification_.reset(window_.get());
}

}  // namespace ravelin
