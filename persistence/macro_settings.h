// A profile's settings line inside the settings line of a session, as macro files carry it.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// The profile settings line of a session's settings line. Groups of fields that are missing or not
// all strict integers come from the live settings.
std::string macroSettingsToProfileLine(std::string_view sessionLine);

// The session line of this moment with the settings of a profile in place of the live ones. An
// empty profile line stands for the defaults; one that is too short leaves the live settings.
std::string profileToSessionLine(std::string_view profileLine);

}  // namespace ravelin
