// Raising, consuming and posting engine requests, and flipping a shared flag.
#pragma once

#include <atomic>

#include "input/engine_state.h"
#include "input/platform.h"

namespace ravelin {

// For a requester that signals the command event itself, once for several requests.
inline void raiseRequest(Requests::Flag& request) {
    request.exchange(1);
}

// Raises the request and wakes the command thread.
inline void postRequest(Requests::Flag& request) {
    raiseRequest(request);
    platform::signal(platform::Event::command);
}

// Whether the request was raised; it is consumed. For the command thread alone.
inline bool takeRequest(Requests::Flag& request) {
    return request.exchange(0) != 0;
}

inline void raiseToolStops() {
    raiseRequest(requests.clickerStop);
    raiseRequest(requests.keySpamStop);
}

// The flag's new value. Atomic: two threads that flip at once leave it as it was.
inline bool flip(std::atomic<bool>& flag) {
    bool was = flag.load();
    while (!flag.compare_exchange_weak(was, !was)) {
    }
    return !was;
}

}  // namespace ravelin
