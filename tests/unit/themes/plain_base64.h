// Base64 decoded character by character: what the decoder is compared with.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ravelin::samples {

inline constexpr std::string_view base64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Each character is looked up and shifted in, each byte appended. Ends at the first character
// outside the alphabet.
inline std::vector<std::uint8_t> decodePlainly(std::string_view text) {
    static const auto sextets = [] {
        std::array<int, 256> table{};
        table.fill(-1);
        for (std::size_t i = 0; i < base64Alphabet.size(); ++i)
            table[static_cast<unsigned char>(base64Alphabet[i])] = static_cast<int>(i);
        return table;
    }();
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        const int sextet = sextets[static_cast<unsigned char>(c)];
        if (sextet < 0) break;
        bits = bits << 6 | static_cast<std::uint32_t>(sextet);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<std::uint8_t>(bits >> count));
    }
    return bytes;
}

}  // namespace ravelin::samples
