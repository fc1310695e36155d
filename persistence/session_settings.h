// The session's settings line: tool settings, recorder and player options, hotkeys and the key
// spammer's targets in 36 fields.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ravelin {

inline constexpr std::size_t sessionFieldCount = 36;

// What stands in front of the line in a session or macro file.
inline constexpr std::string_view settingsPrefix = "SETTINGS:";

// The live settings as a line.
std::string sessionSettingsLine();

// Loads a line into the live settings, as far as it reaches and makes sense: the fields belong to
// groups, and one that is no number ends its group alone. A line of fewer than 23 fields changes
// nothing.
void applySessionSettings(std::string_view line);

}  // namespace ravelin
