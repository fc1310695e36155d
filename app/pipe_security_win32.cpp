#include "app/pipe_security_win32.h"

// Needs the types of windows.h.
#include <sddl.h>

#include <optional>
#include <string>

#include "app/pipe_security.h"
#include "support/process_rights.h"
#include "support/token_information_win32.h"
#include "support/utf.h"

namespace ravelin {
namespace {

std::optional<std::string> userSidText(HANDLE token) {
    const auto buffer = tokenInformation(token, TokenUser);
    if (buffer.empty()) return std::nullopt;
    LocalText text;
    const auto* user = reinterpret_cast<const TOKEN_USER*>(buffer.data());
    if (ConvertSidToStringSidW(user->User.Sid, text.put()) == 0) return std::nullopt;
    return narrow(text.get());
}

}  // namespace

LocalSecurityDescriptor makePipeSecurity() {
    TokenHandle token;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.put()) == 0) return {};
    const auto user = userSidText(token.get());
    const auto level = ownIntegrityLevel();
    if (!user || !level) return {};
    LocalSecurityDescriptor descriptor;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(
        widen(pipeSecurityText(*user, *level)).c_str(), SDDL_REVISION_1, descriptor.put(), nullptr);
    return descriptor;
}

}  // namespace ravelin
