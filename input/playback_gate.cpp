#include "input/playback_gate.h"

#include "input/synthetic_input.h"

namespace ravelin {

bool PlaybackGate::start() {
    const std::lock_guard lock(mutex_);
    return !engine.playing.exchange(true);
}

bool PlaybackGate::stop() {
    const std::lock_guard lock(mutex_);
    if (!engine.playing.exchange(false)) return false;
    run_.fetch_add(1);
    sendMouseButton(mouse_flag::leftUp);
    sendMouseButton(mouse_flag::rightUp);
    return true;
}

void PlaybackGate::finish(Run run) {
    const std::lock_guard lock(mutex_);
    if (run != run_.load()) return;
    run_.fetch_add(1);
    engine.playing.exchange(false);
}

}  // namespace ravelin
