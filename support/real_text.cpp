#include "support/real_text.h"

#include <bit>
#include <charconv>
#include <cstdint>

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
    const Wide half = Wide{1} << (shift - 1);
    const Wide rest = scaled & (half * 2 - 1);
    result.digits = static_cast<std::uint32_t>(scaled >> shift);
    if (rest > half || (rest == half && result.digits % 2 == 1)) ++result.digits;
    // 9.9999996 rounds to 10, one digit in front of the point more.
    if (result.digits == 1000000) {
        result.digits = 100000;
        --result.places;
    }
    return result;
}

// Without trailing zeros.
char* writePlain(char* out, SixDigits number) {
    while (number.places > 0 && number.digits % 10 == 0) {
        number.digits /= 10;
        --number.places;
    }
    const std::uint32_t unit = powersOfTen[number.places];
    out = std::to_chars(out, out + 6, number.digits / unit).ptr;
    if (number.places == 0) return out;
    *out++ = '.';
    std::uint32_t fraction = number.digits % unit;
    for (int i = number.places - 1; i >= 0; --i) {
        out[i] = static_cast<char>('0' + fraction % 10);
        fraction /= 10;
    }
    return out + number.places;
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
