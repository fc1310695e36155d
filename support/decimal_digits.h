// Decimal digits eight at a time, in the bytes of one integer: the first digit lies in the lowest
// byte, which is the first in memory. The lengths of numbers vary from one to the next, so a loop
// over their digits would be mispredicted on most; none of this branches on a digit.
#pragma once

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace ravelin {

static_assert(std::endian::native == std::endian::little);

// The eight digits 0 to 9, leading zeros among them, of a number below 100000000.
inline std::uint64_t eightDigits(std::uint32_t number) {
    // Halves of four digits, then pairs, then single ones: the quotient stays, the remainder moves
    // behind it. The multiplications divide exactly in the range of each step.
    const std::uint64_t halves = number / 10000 + (std::uint64_t{number % 10000} << 32);
    const std::uint64_t hundreds = (halves * 5243 >> 19) & 0x0000007F0000007F;
    const std::uint64_t pairs = hundreds + ((halves - hundreds * 100) << 16);
    const std::uint64_t tens = (pairs * 103 >> 10) & 0x000F000F000F000F;
    return tens + ((pairs - tens * 10) << 8);
}

// The same digits as characters.
inline std::uint64_t digitCharacters(std::uint64_t digits) {
    return digits | 0x3030303030303030;
}

// An integer of 32 bits, signed or not, in decimal. Returns its end; what stands behind it within
// integerTextSize characters is overwritten too.
inline constexpr std::size_t integerTextSize = 12;
inline char* writeInteger(char* out, std::int64_t value) {
    if (value < 0) {
        *out++ = '-';
        value = -value;
    }
    if (value < 10) {
        *out = static_cast<char>('0' + value);
        return out + 1;
    }
    if (value >= 100000000) return std::to_chars(out, out + 10, value).ptr;
    const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(value));
    // The last digit, in the highest byte, is never a leading zero.
    const int zeros = std::countr_zero(digits | std::uint64_t{1} << 56) / 8;
    const std::uint64_t characters = digitCharacters(digits) >> zeros * 8;
    std::memcpy(out, &characters, sizeof characters);
    return out + 8 - zeros;
}

}  // namespace ravelin
