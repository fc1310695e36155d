// Fences around what runs again and again on a thread of the engine.
#pragma once

#include "input/engine_state.h"

namespace ravelin {

// Runs one round of a thread's loop. An exception, in practice a failed allocation, costs this
// round and is counted; it must not end the thread: hotkeys would still be swallowed while nothing
// could be stopped any more. Returns whether the round came to its end.
template <class Round>
bool runFenced(Round&& round) noexcept {
    try {
        round();
        return true;
    } catch (...) {
        health.failures.fetch_add(1);
        return false;
    }
}

// How long a worker waits after a round that failed. Without it a failure that lasts would take a
// whole processor.
inline constexpr std::uint32_t pauseAfterFailureMs = 100;

}  // namespace ravelin
