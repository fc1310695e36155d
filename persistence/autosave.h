// The background save of the session.
#pragma once

namespace ravelin {

// The body of the background thread: saves the session every five seconds until the engine's
// running flag clears, which it notices within a tenth of a second.
void runAutosave();

}  // namespace ravelin
