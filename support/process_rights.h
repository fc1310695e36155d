// The rights that a process runs with, as its integrity level tells.
#pragma once

#include <cstdint>
#include <optional>

namespace ravelin {

// Returns the integrity level of this process or of another one. Nothing when it cannot be read, as
// for a process that is protected or gone.
std::optional<std::uint32_t> ownIntegrityLevel();
std::optional<std::uint32_t> integrityLevelOf(std::uint32_t processId);

}  // namespace ravelin
