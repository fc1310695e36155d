#include "support/process_rights.h"
#include "support/token_information_win32.h"

namespace ravelin {
namespace {

std::optional<std::uint32_t> integrityLevel(HANDLE process) {
    TokenHandle token;
    if (OpenProcessToken(process, TOKEN_QUERY, token.put()) == 0) return std::nullopt;
    const auto buffer = tokenInformation(token.get(), TokenIntegrityLevel);
    if (buffer.empty()) return std::nullopt;
    const PSID label = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(buffer.data())->Label.Sid;
    const BYTE count = *GetSidSubAuthorityCount(label);
    if (count == 0) return std::nullopt;
    return *GetSidSubAuthority(label, count - 1U);
}

}  // namespace

std::optional<std::uint32_t> ownIntegrityLevel() {
    return integrityLevel(GetCurrentProcess());
}

std::optional<std::uint32_t> integrityLevelOf(std::uint32_t processId) {
    const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    return process ? integrityLevel(process.get()) : std::nullopt;
}

}  // namespace ravelin
