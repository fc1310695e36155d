#include "input/input_thread.h"

#include <atomic>

#include "input/engine_state.h"
#include "input/input_hooks_win32.h"
#include "input/raw_input_window_win32.h"
#include "support/win32_handles.h"

namespace ravelin {

namespace {

std::atomic<DWORD> inputThreadId{0};  // 0: not running

void watchUntilQuit() {
    const HMODULE self = GetModuleHandleW(nullptr);
    const RawInputWindow window;
    const HookHandle mouseHook(SetWindowsHookExW(WH_MOUSE_LL, mouseHookProc, self, 0));
    const HookHandle keyboardHook(SetWindowsHookExW(WH_KEYBOARD_LL, keyboardHookProc, self, 0));
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

void runInputThread() {
    // The first look at it makes the thread's message queue: a quit message posted from the moment
    // the identifier is known must find one.
    MSG message{};
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    inputThreadId = GetCurrentThreadId();
    // A shut-down that began before that could not post anything; it cleared the flag first.
    if (engine.running) watchUntilQuit();
    inputThreadId = 0;
}

void postQuitToInputThread() {
    const DWORD id = inputThreadId;
    if (id != 0) PostThreadMessageW(id, WM_QUIT, 0, 0);
}

}  // namespace ravelin
