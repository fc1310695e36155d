#include "app/pipe_security_win32.h"

// Needs the types of windows.h.
#include <sddl.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "app/pipe_security.h"
#include "support/utf.h"

namespace ravelin {
namespace {

// Aligned for the structure that the system puts at its beginning. Empty on failure.
std::vector<std::max_align_t> tokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS which) {
    DWORD size = 0;
    GetTokenInformation(token, which, nullptr, 0, &size);
    std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
    if (size == 0 || GetTokenInformation(token, which, buffer.data(), size, &size) == 0) return {};
    return buffer;
}

std::optional<std::string> userSidText(HANDLE token) {
    const auto buffer = tokenInformation(token, TokenUser);
    if (buffer.empty()) return std::nullopt;
    LocalText text;
    const auto* user = reinterpret_cast<const TOKEN_USER*>(buffer.data());
    if (ConvertSidToStringSidW(user->User.Sid, text.put()) == 0) return std::nullopt;
    return narrow(text.get());
}

std::optional<DWORD> integrityLevel(HANDLE token) {
    const auto buffer = tokenInformation(token, TokenIntegrityLevel);
    if (buffer.empty()) return std::nullopt;
    const PSID label = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(buffer.data())->Label.Sid;
    const BYTE count = *GetSidSubAuthorityCount(label);
    if (count == 0) return std::nullopt;
    return *GetSidSubAuthority(label, count - 1U);
}

}  // namespace

LocalSecurityDescriptor makePipeSecurity() {
    TokenHandle token;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.put()) == 0) return {};
    const auto user = userSidText(token.get());
    const auto level = integrityLevel(token.get());
    if (!user || !level) return {};
    LocalSecurityDescriptor descriptor;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(
        widen(pipeSecurityText(*user, *level)).c_str(), SDDL_REVISION_1, descriptor.put(), nullptr);
    return descriptor;
}

}  // namespace ravelin
