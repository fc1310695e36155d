// Which addresses an installer may come from.
#pragma once

#include <string_view>

namespace ravelin {

inline constexpr std::string_view httpsPrefix = "https://";

// Whether the url begins with "https://", written so, and its host is exactly one of the vendor's
// two, in either case. A user name, a port or anything else beside the host rejects.
bool IsAllowedDownloadUrl(std::string_view url);

}  // namespace ravelin
