// The program in front, as far as it matters to hooks and synthetic input.
#pragma once

#include <cstdint>

namespace ravelin {

enum class Foreground : std::uint8_t {
    none,       // no window, as on the secure desktop or between two programs
    reachable,  // its input passes our hooks, and it takes what we send
    elevated,   // runs with higher rights than this process: neither holds
};

// Returns which of them holds now. Any thread.
Foreground foregroundNow();

}  // namespace ravelin
