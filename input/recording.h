// The life of a recording: its clock, its start, continuation and stop, and the undo of the last
// continuation.
#pragma once

#include "input/unified_event.h"

namespace ravelin {

// Stamps the event with the recording's clock and appends it to the current profile. Does nothing
// when no recording runs or no profile is current.
void appendRecorded(UnifiedEvent event);

}  // namespace ravelin
