// One recorded event as a line of text: the eight fields of the record in their order, separated
// by commas.
#pragma once

#include <string>
#include <string_view>

#include "input/unified_event.h"

namespace ravelin {

// The line without its end. False, and `event` unchanged, when one of the eight fields is missing
// or does not convert; what follows the eighth is ignored.
bool parseEventLine(std::string_view line, UnifiedEvent& event);

// Appends the line and a line feed.
void appendEventLine(std::string& text, const UnifiedEvent& event);

}  // namespace ravelin
