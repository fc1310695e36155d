// One recorded event as a line of text: the eight fields of the record in their order, separated
// by commas.
#pragma once

#include <cstddef>
#include <string_view>

#include "input/event_list.h"
#include "support/block_writer.h"
#include "support/decimal_digits.h"
#include "support/real_text.h"

namespace ravelin {

// Reads a line without its end as one more event of the list. False when one of the eight fields is
// missing or does not convert; the list stays as it was then. What follows the eighth field is
// ignored.
bool appendEvent(EventList& events, std::string_view line);

// Writes the line and its end, as both lie on disk, and returns where they stop. What stands behind
// them within eventLineRoom characters is overwritten too.
inline constexpr std::size_t eventLineRoom = 7 * integerTextSize + realTextSize + 9;
char* writeEventLine(char* out, const UnifiedEvent& event);

// Writes a line for every event.
void writeEvents(BlockWriter& out, const EventList& events);

}  // namespace ravelin
