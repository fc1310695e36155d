#include "updater/member_extractor.h"

#include <cstdint>
#include <optional>

namespace ravelin {

namespace {

constexpr std::uint32_t replacementCharacter = 0xFFFD;

// What stands behind the key and its colon; nothing when either is missing.
std::optional<std::string_view> behindKey(std::string_view text, std::string_view key) {
    const std::string quoted = '"' + std::string(key) + '"';
    const std::size_t at = text.find(quoted);
    if (at == std::string_view::npos) return std::nullopt;
    const std::size_t colon = text.find(':', at + quoted.size());
    if (colon == std::string_view::npos) return std::nullopt;
    return text.substr(colon + 1);
}

void appendUtf8(std::string& out, std::uint32_t code) {
    const auto continuation = [&](unsigned shift) {
        out += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | (code >> 6U));
        continuation(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0U | (code >> 12U));
        continuation(6);
        continuation(0);
    } else {
        out += static_cast<char>(0xF0U | (code >> 18U));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

// The unit of a \uXXXX at the front of the text.
std::optional<std::uint32_t> unitAtFront(std::string_view text) {
    constexpr std::size_t length = 6;
    if (text.size() < length || !text.starts_with("\\u")) return std::nullopt;
    std::uint32_t unit = 0;
    for (const char c : text.substr(2, 4)) {
        unit <<= 4U;
        if (c >= '0' && c <= '9') {
            unit += static_cast<std::uint32_t>(c - '0');
        } else if (c >= 'a' && c <= 'f') {
            unit += static_cast<std::uint32_t>(c - 'a' + 10);
        } else if (c >= 'A' && c <= 'F') {
            unit += static_cast<std::uint32_t>(c - 'A' + 10);
        } else {
            return std::nullopt;
        }
    }
    return unit;
}

// Resolves the \u escape at the front, a surrogate pair as one character, and gives how many
// characters it took; 0 when it is none.
std::size_t resolveUnicode(std::string_view text, std::string& out) {
    const auto unit = unitAtFront(text);
    if (!unit) return 0;
    const bool high = *unit >= 0xD800 && *unit < 0xDC00;
    const bool low = *unit >= 0xDC00 && *unit < 0xE000;
    if (high) {
        const auto second = unitAtFront(text.substr(6));
        if (second && *second >= 0xDC00 && *second < 0xE000) {
            appendUtf8(out, 0x10000 + ((*unit - 0xD800) << 10U) + (*second - 0xDC00));
            return 12;
        }
    }
    appendUtf8(out, high || low ? replacementCharacter : *unit);
    return 6;
}

// The same for the escapes of one letter.
std::size_t resolveLetter(std::string_view text, std::string& out) {
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    const std::size_t which = letters.find(text[1]);
    if (which == std::string_view::npos) return 0;
    out += meanings[which];
    return 2;
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
        std::size_t taken = 0;
        if (rest.front() == '\\' && rest.size() > 1) {
            taken = resolveLetter(rest, value);
            if (taken == 0) taken = resolveUnicode(rest, value);
        }
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
