#include "updater/hex.h"

namespace ravelin {

namespace {

constexpr std::string_view lowerDigits = "0123456789abcdef";

int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string encodeHex(std::string_view bytes) {
    std::string digits;
    digits.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += lowerDigits[byte >> 4U];
        digits += lowerDigits[byte & 15U];
    }
    return digits;
}

std::string decodeHex(std::string_view digits) {
    if (digits.size() % 2 != 0) return {};
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = digitValue(digits[i]);
        const int low = digitValue(digits[i + 1]);
        if (high < 0 || low < 0) return {};
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

}  // namespace ravelin
