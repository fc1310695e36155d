#include "support/number_text.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>

namespace ravelin {
namespace {

template <class T>
Converted<T> failed(ConversionError error) {
    return {T{}, error};
}

// The sign and magnitude of the decimal integer that begins the text, after white space.
struct Magnitude {
    std::uint64_t value = 0;
    bool negative = false;
    bool digits = false;
    bool overflow = false;
    std::size_t length = 0;
};

Magnitude readMagnitude(std::string_view text) {
    Magnitude m;
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r')))
        ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) m.negative = text[i++] == '-';
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        m.digits = true;
        m.value = m.value * 10 + static_cast<std::uint64_t>(text[i] - '0');
        if (m.value > std::numeric_limits<std::uint32_t>::max()) {
            m.overflow = true;
            m.value = std::numeric_limits<std::uint32_t>::max();
        }
    }
    m.length = i;
    return m;
}

Converted<std::int32_t> signed32(const Magnitude& m) {
    if (!m.digits) return failed<std::int32_t>(ConversionError::invalid);
    const std::uint64_t limit = m.negative ? 2147483648U : 2147483647U;
    if (m.overflow || m.value > limit) return failed<std::int32_t>(ConversionError::outOfRange);
    const auto value = static_cast<std::int64_t>(m.value);
    return {static_cast<std::int32_t>(m.negative ? -value : value)};
}

template <class T, class Convert>
Converted<T> floating(std::string_view text, Convert convert) {
    const std::string copy(text);
    char* end = nullptr;
    errno = 0;
    const T value = convert(copy.c_str(), &end);
    if (end == copy.c_str()) return failed<T>(ConversionError::invalid);
    if (errno == ERANGE) return failed<T>(ConversionError::outOfRange);
    return {value};
}

}  // namespace

Converted<std::int32_t> toInt(std::string_view text) {
    return signed32(readMagnitude(text));
}

Converted<std::int32_t> toLong(std::string_view text) {
    return toInt(text);
}

Converted<std::uint32_t> toUnsignedLong(std::string_view text) {
    const Magnitude m = readMagnitude(text);
    if (!m.digits) return failed<std::uint32_t>(ConversionError::invalid);
    if (m.overflow) return failed<std::uint32_t>(ConversionError::outOfRange);
    const auto value = static_cast<std::uint32_t>(m.value);
    return {m.negative ? 0U - value : value};
}

Converted<float> toFloat(std::string_view text) {
    return floating<float>(text, [](const char* s, char** end) { return std::strtof(s, end); });
}

Converted<double> toDouble(std::string_view text) {
    return floating<double>(text, [](const char* s, char** end) { return std::strtod(s, end); });
}

std::int32_t toIntOrThrow(std::string_view text) {
    const auto converted = toInt(text);
    switch (converted.error) {
        case ConversionError::invalid:
            throw std::invalid_argument("invalid stoi argument");
        case ConversionError::outOfRange:
            throw std::out_of_range("stoi argument out of range");
        case ConversionError::none:
            break;
    }
    return converted.value;
}

Converted<std::int32_t> toStrictInt(std::string_view text) {
    const Magnitude m = readMagnitude(text);
    const bool startsBlank =
        !text.empty() && (text[0] == ' ' || (text[0] >= '\t' && text[0] <= '\r'));
    if (m.length != text.size() || startsBlank)
        return failed<std::int32_t>(ConversionError::invalid);
    return signed32(m);
}

char* writeReal(char* out, double value) {
    return std::to_chars(out, out + realTextSize, value, std::chars_format::general, 6).ptr;
}

std::string realText(double value) {
    char text[realTextSize];
    return {text, writeReal(text, value)};
}

}  // namespace ravelin
