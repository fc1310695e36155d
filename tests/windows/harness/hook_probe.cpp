#include "tests/windows/harness/hook_probe.h"

#include <atomic>

namespace ravelin::test {

namespace {

std::atomic<HookProbe*> probe{nullptr};

bool swallows(const HookProbe& self, bool injected) {
    return injected && self.mode() == HookProbe::Mode::swallowInjected;
}

LRESULT CALLBACK onKey(int code, WPARAM message, LPARAM event) {
    HookProbe* self = probe;
    if (code >= 0 && self != nullptr) {
        const auto& details = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(event);
        const bool injected = (details.flags & LLKHF_INJECTED) != 0;
        self->keys.add({.message = static_cast<UINT>(message),
                        .vk = details.vkCode,
                        .scan = details.scanCode,
                        .extended = (details.flags & LLKHF_EXTENDED) != 0,
                        .up = (details.flags & LLKHF_UP) != 0,
                        .injected = injected,
                        .extra = details.dwExtraInfo});
        if (swallows(*self, injected)) return 1;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

LRESULT CALLBACK onMouse(int code, WPARAM message, LPARAM event) {
    HookProbe* self = probe;
    if (code >= 0 && self != nullptr) {
        const auto& details = *reinterpret_cast<const MSLLHOOKSTRUCT*>(event);
        const bool injected = (details.flags & LLMHF_INJECTED) != 0;
        self->mouse.add({.message = static_cast<UINT>(message),
                         .point = details.pt,
                         .mouseData = details.mouseData,
                         .injected = injected,
                         .extra = details.dwExtraInfo});
        if (swallows(*self, injected)) return 1;
    }
    return CallNextHookEx(nullptr, code, message, event);
}

}  // namespace

HookProbe::HookProbe(Mode mode)
    : mode_(mode),
      thread_(
          [this] {
              const HMODULE self = GetModuleHandleW(nullptr);
              probe = this;
              keyboardHook_ = SetWindowsHookExW(WH_KEYBOARD_LL, onKey, self, 0);
              mouseHook_ = SetWindowsHookExW(WH_MOUSE_LL, onMouse, self, 0);
          },
          [this] {
              UnhookWindowsHookEx(mouseHook_);
              UnhookWindowsHookEx(keyboardHook_);
              probe = nullptr;
          }) {}

HookProbe::~HookProbe() = default;

}  // namespace ravelin::test
