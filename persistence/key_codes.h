// Key codes and the key spammer's targets as the settings lines write them.
//
// A code is written and read as a signed number, so that every one of the 32-bit codes that the
// readers let through is read back as what it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ravelin {

std::string keyCodeText(std::uint32_t code);
std::optional<std::uint32_t> toKeyCode(std::string_view text);

// The key spammer's targets joined by "|"; empty when there are none.
std::string targetsText();
// Stores the codes among the first three items; an item that is no number is skipped.
void setTargets(std::string_view text);
// One target, chord mode off.
void setOnlyTarget(std::uint32_t code);

}  // namespace ravelin
