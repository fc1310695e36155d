#include "support/json_escape.h"

#include <cstdint>
#include <optional>

namespace ravelin {
namespace {

constexpr std::uint32_t replacementCharacter = 0xFFFD;

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

std::size_t resolveLetter(std::string_view text, std::string& out) {
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    if (text.size() < 2 || text[0] != '\\') return 0;
    const std::size_t which = letters.find(text[1]);
    if (which == std::string_view::npos) return 0;
    out += meanings[which];
    return 2;
}

}  // namespace

std::size_t resolveJsonEscape(std::string_view text, std::string& out) {
    const std::size_t letter = resolveLetter(text, out);
    return letter != 0 ? letter : resolveUnicode(text, out);
}

}  // namespace ravelin
