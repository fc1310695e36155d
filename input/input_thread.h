// The thread that watches all keyboard and mouse input of the desktop.
#pragma once

namespace ravelin {

// The body of the input thread: two low-level hooks, and a hidden window for raw mouse motion and
// for the news that the session was left. Returns after postQuitToInputThread, or at once when the
// program is already shutting down. A part that Windows refuses is left out, the rest works on.
void runInputThread();

// Ends runInputThread. Nothing happens while that does not run. Any thread.
void postQuitToInputThread();

}  // namespace ravelin
