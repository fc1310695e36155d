// One run through a macro.
#pragma once

#include <cstdint>

#include "input/event_list.h"
#include "input/platform.h"

namespace ravelin {

// Sends the events of a macro, each at its moment; moves the cursor along the way to the next
// recorded position.
class PlaybackPass {
  public:
    explicit PlaybackPass(const EventList& events);
    // Returns when every event is sent, or within one check (about a millisecond) after
    // engine.playing or engine.running went off. Whether every event was sent.
    bool play();

  private:
    void goToStart();
    double elapsed() const;
    // Whether the moment came; false when playback is to end.
    bool waitFor(const UnifiedEvent& event, double target);
    void moveAlong(const UnifiedEvent& event, double target, double now);
    void send(const UnifiedEvent& event);

    const EventList& events_;
    std::int64_t start_ = 0;
    double previousTarget_ = 0.0;
    platform::Point base_;      // where the way to the next position starts
    platform::Point lastSent_;  // the last position on the way, not sent twice
};

}  // namespace ravelin
