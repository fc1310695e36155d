#include "updater/member_extractor.h"

#include <optional>

#include "support/json_escape.h"

namespace ravelin {

namespace {

// What stands behind the key and its colon; nothing when either is missing.
std::optional<std::string_view> behindKey(std::string_view text, std::string_view key) {
    const std::string quoted = '"' + std::string(key) + '"';
    const std::size_t at = text.find(quoted);
    if (at == std::string_view::npos) return std::nullopt;
    const std::size_t colon = text.find(':', at + quoted.size());
    if (colon == std::string_view::npos) return std::nullopt;
    return text.substr(colon + 1);
}

}  // namespace

std::string stringMember(std::string_view text, std::string_view key) {
    const auto behind = behindKey(text, key);
    if (!behind) return {};
    const std::size_t opening = behind->find('"');
    if (opening == std::string_view::npos) return {};

    std::string value;
    std::string_view rest = behind->substr(opening + 1);
    while (!rest.empty() && rest.front() != '"') {
        std::size_t taken = resolveJsonEscape(rest, value);
        if (taken == 0) {
            value += rest.front();
            taken = 1;
        }
        rest.remove_prefix(taken);
    }
    if (rest.empty()) return {};
    return value;
}

bool booleanMember(std::string_view text, std::string_view key) {
    const auto behind = behindKey(text, key);
    if (!behind) return false;
    const std::size_t value = behind->find_first_not_of(" \t\r\n");
    return value != std::string_view::npos && behind->substr(value).starts_with("true");
}

}  // namespace ravelin
