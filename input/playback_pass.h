// One run through a macro.
#pragma once

#include <cstdint>

#include "input/event_list.h"
#include "input/platform.h"
#include "input/playback_gate.h"

namespace ravelin {

// Sends the events of a macro, each at its moment; moves the cursor along the way to the next
// recorded position.
class PlaybackPass {
  public:
    PlaybackPass(const EventList& events, PlaybackGate::Run run);
    // Sends every event, or stops within one check (about a millisecond) after the run was stopped
    // or the program began to end. Returns whether the run still goes on.
    bool play();
    // Releases the left and the right button if the events pressed them last: for the end of the
    // program, when nobody else will.
    void releaseHeldButtons();

  private:
    bool goToStart();
    double elapsed() const;
    // Waits for the event's moment; false when the run is over.
    bool waitFor(const UnifiedEvent& event, double target);
    bool moveAlong(const UnifiedEvent& event, double target, double now);
    void send(const UnifiedEvent& event);
    void sendButton(std::uint32_t flags);

    const EventList& events_;
    PlaybackGate::Run run_;
    bool leftHeld_ = false;
    bool rightHeld_ = false;
    std::int64_t start_ = 0;
    double previousTarget_ = 0.0;
    platform::Point base_;      // where the way to the next position starts
    platform::Point lastSent_;  // the last position on the way, not sent twice
};

}  // namespace ravelin
