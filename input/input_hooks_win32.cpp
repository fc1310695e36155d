#include "input/input_hooks_win32.h"

#include "input/capture.h"
#include "input/fence.h"
#include "input/foreground.h"

namespace ravelin {
namespace {

// Any other value than 0 keeps an event from the rest of the desktop.
constexpr LRESULT swallow = 1;

KeyboardEvent keyboardEvent(WPARAM message, const KBDLLHOOKSTRUCT& details) {
    return {.vk = details.vkCode,
            .down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN,
            .injected = (details.flags & LLKHF_INJECTED) != 0,
            .time = details.time};
}

std::uint32_t sideButton(DWORD mouseData) {
    return HIWORD(mouseData) == XBUTTON1 ? VK_XBUTTON1 : VK_XBUTTON2;
}

struct ButtonMessage {
    WPARAM message;
    MouseEvent::Kind kind;
    std::uint32_t button;  // 0: the event's data tells which side button
};

constexpr ButtonMessage buttonMessages[] = {
    {WM_LBUTTONDOWN, MouseEvent::Kind::press, VK_LBUTTON},
    {WM_LBUTTONUP, MouseEvent::Kind::release, VK_LBUTTON},
    {WM_RBUTTONDOWN, MouseEvent::Kind::press, VK_RBUTTON},
    {WM_RBUTTONUP, MouseEvent::Kind::release, VK_RBUTTON},
    {WM_MBUTTONDOWN, MouseEvent::Kind::press, VK_MBUTTON},
    {WM_MBUTTONUP, MouseEvent::Kind::release, VK_MBUTTON},
    {WM_XBUTTONDOWN, MouseEvent::Kind::press, 0},
    {WM_XBUTTONUP, MouseEvent::Kind::release, 0},
};

MouseEvent mouseEvent(WPARAM message, const MSLLHOOKSTRUCT& details) {
    MouseEvent event{.point = {details.pt.x, details.pt.y},
                     .injected = (details.flags & LLMHF_INJECTED) != 0,
                     .time = details.time};
    if (message == WM_MOUSEMOVE) {
        event.kind = MouseEvent::Kind::move;
    } else if (message == WM_MOUSEWHEEL) {
        event.kind = MouseEvent::Kind::wheel;
        event.wheel = static_cast<std::int16_t>(HIWORD(details.mouseData));
    } else {
        for (const ButtonMessage& one : buttonMessages) {
            if (one.message != message) continue;
            event.kind = one.kind;
            event.button = one.button != 0 ? one.button : sideButton(details.mouseData);
        }
    }
    return event;
}

// Nothing may be thrown into the system; an event whose handling fails goes on to the others.
template <class Event>
bool swallows(bool (*handler)(const Event&), const Event& event) noexcept {
    bool swallowed = false;
    runFenced([&] { swallowed = handler(event); });
    return swallowed;
}

HookHandle install(int kind, HOOKPROC procedure) {
    return HookHandle(SetWindowsHookExW(kind, procedure, GetModuleHandleW(nullptr), 0));
}

// The old one first: had it lived, every event would be handled twice. Counts what was put back.
void putBack(HookHandle& hook, int kind, HOOKPROC procedure) {
    hook.reset();
    hook = install(kind, procedure);
    if (hook) health.hooksPutBack.fetch_add(1);
}

}  // namespace

LRESULT CALLBACK keyboardHookProc(int code, WPARAM message, LPARAM event) noexcept {
    hookWatch.onKeyboardCall();
    if (code >= 0) {
        const auto& details = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(event);
        if (swallows(onKeyboardEvent, keyboardEvent(message, details))) return swallow;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

LRESULT CALLBACK mouseHookProc(int code, WPARAM message, LPARAM event) noexcept {
    hookWatch.onMouseCall();
    if (code >= 0) {
        const auto& details = *reinterpret_cast<const MSLLHOOKSTRUCT*>(event);
        if (swallows(onMouseEvent, mouseEvent(message, details))) return swallow;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

InputHooks::InputHooks()
    : mouseHook_(install(WH_MOUSE_LL, mouseHookProc)),
      keyboardHook_(install(WH_KEYBOARD_LL, keyboardHookProc)) {
    hookWatch = {};
    noteMissing();
}

void InputHooks::putBackLost() {
    LASTINPUTINFO last{sizeof last, 0};
    GetLastInputInfo(&last);
    const auto lost = hookWatch.judge({.now = GetTickCount(),
                                       .lastInput = last.dwTime,
                                       .inFrontReachable = foregroundNow() == Foreground::reachable,
                                       .mouseMissing = !mouseHook_,
                                       .keyboardMissing = !keyboardHook_});
    if (lost.mouse) putBack(mouseHook_, WH_MOUSE_LL, mouseHookProc);
    if (lost.keyboard) putBack(keyboardHook_, WH_KEYBOARD_LL, keyboardHookProc);
    noteMissing();
}

void InputHooks::noteMissing() const {
    health.hooksMissing.exchange(!mouseHook_ || !keyboardHook_);
}

}  // namespace ravelin
