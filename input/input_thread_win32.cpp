#include "input/input_thread.h"

#include <atomic>

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/input_hooks_win32.h"
#include "input/platform.h"
#include "input/raw_input_window_win32.h"
#include "support/win32_handles.h"

namespace ravelin {

namespace {

std::atomic<DWORD> inputThreadId{0};  // 0: not running

constexpr UINT watchEveryMs = 1000;

void watchUntilQuit() {
    RawInputWindow window;
    InputHooks hooks;
    const ThreadTimer timer(SetTimer(nullptr, 0, watchEveryMs, nullptr));
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && message.wParam == timer.get())
            runFenced([&] {
                hooks.putBackLost();
                window.askForSessionNews();
            });
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
    platform::enterWorkerThread();
    // The hooks hold up the input of the whole desktop, and are removed when they take too long.
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL);
    // A shut-down that began before that could not post anything; it cleared the flag first.
    if (engine.running) watchUntilQuit();
    inputThreadId = 0;
}

void postQuitToInputThread() {
    const DWORD id = inputThreadId;
    if (id != 0) PostThreadMessageW(id, WM_QUIT, 0, 0);
}

}  // namespace ravelin
