#include "app/view_wait_timer_win32.h"

#include <windows.h>

#include <string>
#include <utility>

#include "app/engine_question_win32.h"
#include "app/engine_runtime_win32.h"
#include "app/view_limit.h"
#include "app/view_wait.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

constexpr UINT tickMs = 250;
// For the answer of an engine whose library has given up already.
constexpr ULONGLONG answerLimitMs = 10'000;

}  // namespace

struct ViewWaitTimer::State : std::enable_shared_from_this<State> {
    ULONGLONG began = GetTickCount64();
    ViewWait wait{viewLimitMs()};
    std::string version = installedEngineVersion();
    ThreadTimer timer;
    bool quitPosted = false;

    // That of the wait on this thread.
    static thread_local State* current;

    ULONGLONG elapsed() const { return GetTickCount64() - began; }

    void ask() {
        // The engine may answer when this wait is long over.
        askEngine([weak = weak_from_this()](std::uint32_t answer) {
            if (const auto self = weak.lock()) self->wait.answered(answer, self->elapsed());
        });
    }

    void tick() {
        const WaitStep step = wait.step(elapsed());
        if (step == WaitStep::askEngine) ask();
        if (step != WaitStep::giveUp) return;
        timer.reset();
        // The library's loop ends with this message, and its wait with the loop.
        quitPosted = true;
        PostQuitMessage(0);
    }

    // A failed question leaves the attempt without an answer.
    void awaitAnswer() {
        ask();
        const ULONGLONG limit = GetTickCount64() + answerLimitMs;
        while (!wait.answer() && GetTickCount64() < limit) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, tickMs, QS_ALLINPUT);
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0)
                DispatchMessageW(&message);
        }
    }
};

thread_local ViewWaitTimer::State* ViewWaitTimer::State::current = nullptr;

ViewWaitTimer::ViewWaitTimer() : state_(std::make_shared<State>()) {
    State::current = state_.get();
    state_->timer.reset(SetTimer(nullptr, 0, tickMs, [](HWND, UINT, UINT_PTR, DWORD) {
        if (State::current != nullptr) State::current->tick();
    }));
}

ViewWaitTimer::~ViewWaitTimer() {
    State::current = nullptr;
    // A view that came in the last moment must not find its own loop ended.
    MSG message{};
    if (state_->quitPosted) PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
}

ViewFailure ViewWaitTimer::failure() {
    state_->timer.reset();
    const std::string version = installedEngineVersion();
    // Not after a wait that was ended: the library's own request may still be answered, to nobody.
    if (!state_->quitPosted && !version.empty() && !state_->wait.answer()) state_->awaitAnswer();
    return failureOf({.versionBefore = state_->version,
                      .versionNow = version,
                      .answer = state_->wait.answer(),
                      .timedOut = state_->wait.timedOut()});
}

}  // namespace ravelin
