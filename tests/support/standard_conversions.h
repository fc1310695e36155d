// The standard conversions themselves, as the plain measure of ours: with the ranges of Windows,
// and with what makes std::stoi and its relatives throw as an error value.
#pragma once

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "support/number_text.h"

namespace ravelin::test {

inline Converted<std::int32_t> standardInt(const std::string& text) {
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (end == text.c_str()) return {0, ConversionError::invalid};
    if (errno == ERANGE || value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max())
        return {0, ConversionError::outOfRange};
    return {static_cast<std::int32_t>(value)};
}

// Unsigned in 32 bits, where a minus negates within the type: the magnitude decides the range.
inline Converted<std::uint32_t> standardUnsignedLong(const std::string& text) {
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(text.c_str(), &end, 10);
    if (end == text.c_str()) return {0, ConversionError::invalid};
    const bool minus = text.find('-') < static_cast<std::size_t>(end - text.c_str());
    const unsigned long long magnitude = minus ? 0ULL - value : value;
    if (errno == ERANGE || magnitude > std::numeric_limits<std::uint32_t>::max())
        return {0, ConversionError::outOfRange};
    return {static_cast<std::uint32_t>(value)};
}

template <class T>
Converted<T> standardReal(const std::string& text, T (*convert)(const char*, char**)) {
    char* end = nullptr;
    errno = 0;
    const T value = convert(text.c_str(), &end);
    if (end == text.c_str()) return {0, ConversionError::invalid};
    if (errno == ERANGE) return {0, ConversionError::outOfRange};
    return {value};
}

inline Converted<float> standardFloat(const std::string& text) {
    return standardReal<float>(text, std::strtof);
}

inline Converted<double> standardDouble(const std::string& text) {
    return standardReal<double>(text, std::strtod);
}

// The same error, or the same value with the same sign; every NaN is the same.
template <class T>
bool sameConversion(const Converted<T>& a, const Converted<T>& b) {
    if (a.error != b.error) return false;
    if constexpr (std::is_floating_point_v<T>) {
        if (std::isnan(a.value)) return std::isnan(b.value);
        return a.value == b.value && std::signbit(a.value) == std::signbit(b.value);
    } else {
        return a.value == b.value;
    }
}

}  // namespace ravelin::test
