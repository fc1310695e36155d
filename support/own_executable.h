// Which processes run the same executable as this one.
#pragma once

#include <cstdint>

namespace ravelin {

// Whether the process runs this executable: the same full path, ignoring case. False when that
// cannot be told, as for a process that is gone or whose path does not fit into a path buffer.
bool runsOwnExecutable(std::uint32_t processId);

}  // namespace ravelin
