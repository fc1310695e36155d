#include "support/number_text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>
#include <system_error>

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

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    const auto* const start = std::find_if_not(text.begin(), text.end(), isBlank);
    return text.substr(static_cast<std::size_t>(start - text.begin()));
}

Magnitude readMagnitude(std::string_view text) {
    Magnitude m;
    std::size_t i = text.size() - withoutLeadingBlanks(text).size();
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

template <class T>
using StandardConversion = T (*)(const char*, char**);

template <class T>
Converted<T> standard(std::string_view text, StandardConversion<T> convert) {
    const std::string copy(text);
    char* end = nullptr;
    errno = 0;
    const T value = convert(copy.c_str(), &end);
    if (end == copy.c_str()) return failed<T>(ConversionError::invalid);
    if (errno == ERANGE) return failed<T>(ConversionError::outOfRange);
    return {value};
}

// Whether what follows the sign may be hexadecimal.
bool startsHexadecimal(std::string_view number) {
    return number.size() >= 2 && number[0] == '0' && (number[1] == 'x' || number[1] == 'X');
}

// Both ways of reading a decimal number round correctly, so they agree on every number of full
// precision, which std::from_chars reads several times faster. What is reported about the others
// is left to the standard conversion.
template <class T>
Converted<T> floating(std::string_view text, StandardConversion<T> convert) {
    std::string_view number = withoutLeadingBlanks(text);
    const bool plus = number.starts_with('+');
    if (plus) number.remove_prefix(1);
    const bool minus = number.starts_with('-');
    if (plus && minus) return failed<T>(ConversionError::invalid);
    if (!startsHexadecimal(number.substr(minus ? 1 : 0))) {
        T value{};
        const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
        if (read.ec == std::errc::invalid_argument) return failed<T>(ConversionError::invalid);
        const bool fullPrecision =
            value == 0 || !(std::abs(value) <= std::numeric_limits<T>::min());
        if (read.ec == std::errc() && fullPrecision) return {value};
    }
    return standard(text, convert);
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
    return floating<float>(text, std::strtof);
}

Converted<double> toDouble(std::string_view text) {
    return floating<double>(text, std::strtod);
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
    if (m.length != text.size()) return failed<std::int32_t>(ConversionError::invalid);
    return signed32(m);
}

}  // namespace ravelin
