// Whether the macro is played, and the exclusion of sending and stopping.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <utility>

#include "input/engine_state.h"

namespace ravelin {

// Keeps the player from sending anything behind a stop. The player asks whether it goes on and
// sends in one step, the command thread stops and releases the buttons in another, and no two steps
// overlap: otherwise a press that was decided on before the stop would come after its releases and
// leave a button down.
class PlaybackGate {
  public:
    // One playing of the macro, from a start to the stop or the end that follows.
    using Run = std::uint64_t;

    // For the command thread. start() returns whether nothing was played before, stop() whether
    // something was; a stop releases the left and the right button. The middle button and the keys
    // that the macro holds at the time stay down.
    bool start();
    bool stop();

    // For the player. The run in progress, while engine.playing is set.
    Run currentRun() const { return run_.load(); }
    // Whether the run was neither stopped nor ended by the end of the program. A later run of the
    // same macro is another one.
    bool goesOn(Run run) const {
        return engine.playing.load() && engine.running.load() && run == run_.load();
    }
    // Calls `send` if the run goes on; returns whether it does.
    template <class Send>
    bool whileItGoesOn(Run run, Send&& send) {
        const std::lock_guard lock(mutex_);
        if (!goesOn(run)) return false;
        std::forward<Send>(send)();
        return true;
    }
    // Ends the run by itself, without a release. Nothing happens when it was stopped already.
    void finish(Run run);

  private:
    std::mutex mutex_;
    std::atomic<Run> run_{0};  // changes while the mutex is held
};

inline PlaybackGate playbackGate;

}  // namespace ravelin
