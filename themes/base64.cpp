#include "themes/base64.h"

#include <algorithm>
#include <array>

namespace ravelin {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The six bits of each character; padding counts as zero bits.
constexpr auto sextets = [] {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        table[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
    return table;
}();

std::uint32_t sextet(char c) {
    return sextets[static_cast<unsigned char>(c)];
}

std::size_t paddingOf(std::string_view text) {
    if (text.ends_with("==")) return 2;
    return text.ends_with('=') ? 1 : 0;
}

// Arithmetic on bytes without branches, so that the compiler checks many characters at a time.
std::uint8_t isInAlphabet(char character) {
    const auto c = static_cast<std::uint8_t>(character);
    const auto letter = static_cast<std::uint8_t>((c | 0x20) - 'a');
    const auto digit = static_cast<std::uint8_t>(c - '0');
    return static_cast<std::uint8_t>(static_cast<int>(letter < 26) | static_cast<int>(digit < 10) |
                                     static_cast<int>(c == '+') | static_cast<int>(c == '/'));
}

}  // namespace

bool isWellFormedBase64(std::string_view text) {
    if (text.empty() || text.size() % 4 != 0) return false;
    text.remove_suffix(paddingOf(text));
    // Without an early exit: a broken text is rare and ends the check of its theme anyway.
    std::uint8_t all = 1;
    for (const char c : text)
        all &= isInAlphabet(c);
    return all != 0;
}

std::size_t decodedBase64Size(std::string_view text) {
    return text.size() / 4 * 3 - paddingOf(text);
}

std::span<const std::uint8_t> decodeBase64(std::string_view text, std::span<std::uint8_t> bytes) {
    const std::size_t size = std::min(decodedBase64Size(text), bytes.size());
    const char* group = text.data();
    for (std::size_t written = 0; written < size; group += 4) {
        const std::uint32_t bits = sextet(group[0]) << 18 | sextet(group[1]) << 12 |
                                   sextet(group[2]) << 6 | sextet(group[3]);
        for (int shift = 16; shift >= 0 && written < size; shift -= 8)
            bytes[written++] = static_cast<std::uint8_t>(bits >> shift);
    }
    return bytes.first(size);
}

}  // namespace ravelin
