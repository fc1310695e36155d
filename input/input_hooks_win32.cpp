#include "input/input_hooks_win32.h"

#include "input/capture.h"

namespace ravelin {

namespace {

// Any other value than 0 keeps an event from the rest of the desktop.
constexpr LRESULT swallow = 1;

KeyboardEvent keyboardEvent(WPARAM message, const KBDLLHOOKSTRUCT& details) {
    return {.vk = details.vkCode,
            .down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN,
            .injected = (details.flags & LLKHF_INJECTED) != 0};
}

std::uint32_t sideButton(DWORD mouseData) {
    return HIWORD(mouseData) == XBUTTON1 ? VK_XBUTTON1 : VK_XBUTTON2;
}

MouseEvent mouseEvent(WPARAM message, const MSLLHOOKSTRUCT& details) {
    MouseEvent event{.point = {details.pt.x, details.pt.y},
                     .injected = (details.flags & LLMHF_INJECTED) != 0};
    const auto button = [&event](MouseEvent::Kind kind, std::uint32_t code) {
        event.kind = kind;
        event.button = code;
    };
    switch (message) {
        case WM_MOUSEMOVE:
            event.kind = MouseEvent::Kind::move;
            break;
        case WM_LBUTTONDOWN:
            button(MouseEvent::Kind::press, VK_LBUTTON);
            break;
        case WM_LBUTTONUP:
            button(MouseEvent::Kind::release, VK_LBUTTON);
            break;
        case WM_RBUTTONDOWN:
            button(MouseEvent::Kind::press, VK_RBUTTON);
            break;
        case WM_RBUTTONUP:
            button(MouseEvent::Kind::release, VK_RBUTTON);
            break;
        case WM_MBUTTONDOWN:
            button(MouseEvent::Kind::press, VK_MBUTTON);
            break;
        case WM_MBUTTONUP:
            button(MouseEvent::Kind::release, VK_MBUTTON);
            break;
        case WM_XBUTTONDOWN:
            button(MouseEvent::Kind::press, sideButton(details.mouseData));
            break;
        case WM_XBUTTONUP:
            button(MouseEvent::Kind::release, sideButton(details.mouseData));
            break;
        case WM_MOUSEWHEEL:
            event.kind = MouseEvent::Kind::wheel;
            event.wheel = static_cast<std::int16_t>(HIWORD(details.mouseData));
            break;
        default:
            break;
    }
    return event;
}

// Nothing may be thrown into the system; an event whose handling fails goes on to the others.
template <class Event>
bool swallows(bool (*handler)(const Event&), const Event& event) noexcept {
    try {
        return handler(event);
    } catch (...) {
        return false;
    }
}

}  // namespace

LRESULT CALLBACK keyboardHookProc(int code, WPARAM message, LPARAM event) noexcept {
    if (code >= 0) {
        const auto& details = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(event);
        if (swallows(onKeyboardEvent, keyboardEvent(message, details))) return swallow;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

LRESULT CALLBACK mouseHookProc(int code, WPARAM message, LPARAM event) noexcept {
    if (code >= 0) {
        const auto& details = *reinterpret_cast<const MSLLHOOKSTRUCT*>(event);
        if (swallows(onMouseEvent, mouseEvent(message, details))) return swallow;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

}  // namespace ravelin
