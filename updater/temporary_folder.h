// The user's folder for temporary files.
#pragma once

#include <optional>
#include <string>

namespace ravelin {

// With its trailing backslash; nothing when the system has none or its path is too long.
std::optional<std::wstring> temporaryFolder();

}  // namespace ravelin
