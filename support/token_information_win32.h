// What the system says about an access token.
#pragma once

#include <cstddef>
#include <vector>

#include "support/win32_handles.h"

namespace ravelin {

// Returns one kind of information, aligned for the structure that the system puts at its beginning.
// Empty on failure.
inline std::vector<std::max_align_t> tokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS which) {
    DWORD size = 0;
    GetTokenInformation(token, which, nullptr, 0, &size);
    std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
    if (size == 0 || GetTokenInformation(token, which, buffer.data(), size, &size) == 0) return {};
    return buffer;
}

}  // namespace ravelin
