#include "support/real_text.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "support/decimal_digits.h"

namespace ravelin {
namespace {

constexpr std::uint32_t powersOfTen[] = {1,      10,      100,      1000,      10000,
                                         100000, 1000000, 10000000, 100000000, 1000000000};

// The six significant digits of a number as an integer of six digits, and how many of them stand
// behind the point.
struct SixDigits {
    std::uint32_t digits = 0;
    int places = 0;
};

// Of a number from 0.0001 to below 999999.5, which are written without an exponent. The number is
// an integer of 53 bits over a power of two: scaled by a power of ten it still fits into 128 bits,
// so the digits are rounded exactly, halves to even as everywhere.
SixDigits sixDigits(double value) {
    static constexpr double limits[] = {1e5, 1e4, 1e3, 1e2, 1e1, 1e0, 1e-1, 1e-2, 1e-3, 1e-4};
    __extension__ using Wide = unsigned __int128;
    SixDigits result;
    while (value < limits[result.places])
        ++result.places;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t mantissa = (bits & 0x000FFFFFFFFFFFFF) | 0x0010000000000000;
    const int shift = 1075 - static_cast<int>(bits >> 52);
    const Wide scaled = Wide{mantissa} * powersOfTen[result.places];
    // What lifts the number over the next digit when it has to be rounded up: a branch would be
    // mispredicted every other time.
    const Wide half =
        (Wide{1} << (shift - 1)) - 1 + (static_cast<std::uint32_t>(scaled >> shift) & 1);
    result.digits = static_cast<std::uint32_t>((scaled + half) >> shift);
    // 9.9999996 rounds to 10, one digit in front of the point more.
    if (result.digits == 1000000) {
        result.digits = 100000;
        --result.places;
    }
    return result;
}

// Without trailing zeros behind the point.
char* writePlain(char* out, SixDigits number) {
    // Two zeros stand in front of the six digits, and as many behind them when they are gone.
    const std::uint64_t digits = eightDigits(number.digits) >> 16;
    const int significant = 8 - std::countl_zero(digits) / 8;
    const std::uint64_t characters = digitCharacters(digits);
    const int whole = 6 - number.places;
    if (whole <= 0) {
        std::string_view("0.000000").copy(out, 8);
        std::memcpy(out + 2 - whole, &characters, sizeof characters);
        return out + 2 - whole + significant;
    }
    std::memcpy(out, &characters, sizeof characters);
    if (significant <= whole) return out + whole;
    const std::uint64_t fraction = characters >> whole * 8;
    out[whole] = '.';
    std::memcpy(out + whole + 1, &fraction, sizeof fraction);
    return out + significant + 1;
}

}  // namespace

char* writeReal(char* out, double value) {
    if (value >= 1e-4 && value < 999999.5) return writePlain(out, sixDigits(value));
    return std::to_chars(out, out + realTextSize, value, std::chars_format::general, 6).ptr;
}

std::string realText(double value) {
    char text[realTextSize];
    return {text, writeReal(text, value)};
}

}  // namespace ravelin
