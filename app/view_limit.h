// How long the program waits for its view.
#pragma once

#include <cstdint>

namespace ravelin {

// In milliseconds. In a file of its own, so that a test's program can be linked with another limit.
std::uint32_t viewLimitMs();

}  // namespace ravelin
