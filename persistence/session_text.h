// The text of the session file: its settings line, the current profile and the profiles with their
// events.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "persistence/profiles.h"
#include "support/line_reader.h"

namespace ravelin {

struct Session {
    std::string settingsLine;
    std::int32_t current = 0;
    std::vector<Profile> profiles;
};

// Returns the text as it lies on disk.
std::string sessionText(const Session& session);

// Nothing when the text does not begin with a settings line. Lines that make no sense are skipped
// one by one; the current index is as the text has it, within the list or not.
std::optional<Session> readSession(LineReader& lines);

}  // namespace ravelin
