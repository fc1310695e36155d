// Random numbers that nobody can foresee.
#pragma once

#include <cstddef>
#include <string>

namespace ravelin {

// From the system's cryptographic generator; empty on failure. Any thread.
std::string randomBytes(std::size_t count);

}  // namespace ravelin
