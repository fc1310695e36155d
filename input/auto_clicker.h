// The auto clicker: clicks a mouse button again and again at the set interval, where the cursor is
// or at the fixed point, until it is stopped or its count is reached.
#pragma once

namespace ravelin {

// The worker: returns when engine.running is false. The first click comes at once when the clicker
// starts, every later one an interval after the round before has finished; lateness is not made up.
void runAutoClicker();

// Carries out the toggle, start and stop requests, in this order. The command thread alone.
void applyClickerRequests();

}  // namespace ravelin
