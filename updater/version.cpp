#include "updater/version.h"

#include <optional>
#include <tuple>

namespace ravelin {

namespace {

constexpr std::size_t mostDigits = 5;
constexpr std::string_view preReleaseMark = "-beta.";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Takes the digits off the front of the text; nothing when there are none or too many.
std::optional<std::uint32_t> takeNumber(std::string_view& text) {
    std::uint32_t value = 0;
    std::size_t digits = 0;
    while (digits < text.size() && isDigit(text[digits])) {
        if (digits == mostDigits) return std::nullopt;
        value = value * 10 + static_cast<std::uint32_t>(text[digits] - '0');
        ++digits;
    }
    if (digits == 0) return std::nullopt;
    text.remove_prefix(digits);
    return value;
}

bool take(std::string_view& text, std::string_view expected) {
    if (!text.starts_with(expected)) return false;
    text.remove_prefix(expected.size());
    return true;
}

}  // namespace

Version ParseVersion(std::string_view text) {
    const auto major = takeNumber(text);
    if (!major || !take(text, ".")) return {};
    const auto minor = takeNumber(text);
    if (!minor || !take(text, ".")) return {};
    const auto patch = takeNumber(text);
    if (!patch) return {};

    Version version{*major, *minor, *patch, false, 0, true};
    if (text.empty()) return version;
    if (!take(text, preReleaseMark)) return {};
    const auto preNum = takeNumber(text);
    if (!preNum || !text.empty()) return {};
    version.isPre = true;
    version.preNum = *preNum;
    return version;
}

bool isNewer(const Version& offered, const Version& own) {
    const auto numbers = [](const Version& v) { return std::tie(v.major, v.minor, v.patch); };
    if (numbers(offered) != numbers(own)) return numbers(offered) > numbers(own);
    if (offered.isPre && own.isPre) return offered.preNum > own.preNum;
    return !offered.isPre && own.isPre;
}

}  // namespace ravelin
