// Joining a newly recorded part to what a macro held before.
#pragma once

#include <cstddef>

#include "input/event_list.h"

namespace ravelin {

// Shifts the times of the events from index `continuation` on. Without older events the first new
// one comes at 0; otherwise it comes 0.1 s after the last old one, or later, if the last old and
// the first new button press are of the same button and would lie closer than `doubleClickGuard`
// seconds: then they lie exactly the guard apart, so that two clicks do not become a double click.
// Without new events nothing changes.
void stitchContinuation(EventList& events, std::size_t continuation, double doubleClickGuard);

}  // namespace ravelin
