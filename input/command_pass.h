// The command thread: the one place that carries requests out.
//
// Requesters (page methods, pipe messages, hooks, the player) raise request flags and signal the
// command event; nothing else changes what the engine does.
#pragma once

namespace ravelin {

// Carries out every pending request once, in a fixed order: starts before stops, the recorder and
// the player before the tools that they may stop.
void runCommandPass();
// Passes, one at once and one for every signal, until engine.running is false.
void runCommandThread();

}  // namespace ravelin
