// Windows error codes as text.
#pragma once

#include <cstdint>
#include <string>

namespace ravelin {

// What the system says about the code, followed by the code in parentheses: "Access is denied.
// (5)". Win32 codes, HRESULTs and the codes of WinHTTP. A code that the system does not know gives
// "Error" and the code. UTF-8, one line. The thread's last error stays as it was.
std::string win32ErrorText(std::uint32_t code);

// The same for the calling thread's last error.
std::string lastErrorText();

}  // namespace ravelin
