// One recorded event as a line of text: the eight fields of the record in their order, separated
// by commas.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "input/unified_event.h"

namespace ravelin {

// The line without its end. False when one of the eight fields is missing or does not convert;
// `event` holds nothing of use then. What follows the eighth field is ignored.
bool parseEventLine(std::string_view line, UnifiedEvent& event);

// Appends the line and its end, as both lie on disk.
void appendEventLine(std::string& text, const UnifiedEvent& event);

// Room for a line of a usual recording with its end: what a text of many is best reserved for.
inline constexpr std::size_t usualEventLineSize = 32;

}  // namespace ravelin
