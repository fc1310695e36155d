// Which executable a process runs.
#pragma once

#include <cstdint>
#include <string_view>

namespace ravelin {

// Whether the process runs the executable of this process: both full paths are read and equal
// ignoring case. False for a path that cannot be read or does not fit into 260 characters. Any
// thread.
bool runsThisExecutable(std::uint32_t processId);

// As the system compares file names: character by character, whatever the user's language.
bool equalIgnoringCase(std::wstring_view a, std::wstring_view b);

}  // namespace ravelin
