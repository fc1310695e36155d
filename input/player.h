// The macro player: sends the current profile's macro as synthetic input, at the chosen speed, once
// or in a loop.
#pragma once

namespace ravelin {

// The worker: returns when engine.running is false. Each pass plays a snapshot of the macro, so a
// change of the macro applies from the next pass. Every event has its moment on the pass's own
// clock; a late one is sent at once and delays do not add up.
void runPlayer();

// Carries out the toggle, start and stop requests, in this order. The command thread alone.
void applyPlayerRequests();

}  // namespace ravelin
