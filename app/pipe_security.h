// Who may use the pipe, as a security descriptor string.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ravelin {

// From this integrity level on, processes of lower integrity are kept from writing to the pipe.
inline constexpr std::uint32_t highIntegrity = 0x3000;

// Local System, the administrators and the user of the given SID, and nobody else. The integrity
// level is the last sub-authority of the process's mandatory label.
std::string pipeSecurityText(std::string_view userSid, std::uint32_t integrityLevel);

}  // namespace ravelin
