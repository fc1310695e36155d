// The standard string-to-number conversions as values, with the ranges of Windows on every system:
// `long` has 32 bits there, so the long conversions are checked against 32 bits here.
//
// All of them skip leading white space (blank, \t, \n, \v, \f, \r), allow a sign and ignore what
// follows the number, as std::stoi and its relatives do.
#pragma once

#include <cstdint>
#include <string_view>

namespace ravelin {

enum class ConversionError : std::uint8_t { none, invalid, outOfRange };

template <class T>
struct Converted {
    T value{};
    ConversionError error = ConversionError::none;
    explicit operator bool() const { return error == ConversionError::none; }
};

Converted<std::int32_t> toInt(std::string_view text);
Converted<std::int32_t> toLong(std::string_view text);
// A leading minus negates within 32 bits, as strtoul does: "-1" gives 4294967295.
Converted<std::uint32_t> toUnsignedLong(std::string_view text);
// Decimal, exponent and hexadecimal notation, "inf" and "nan". A number too
// large for the type, or so small that the type holds it with fewer digits or not at all, is out
// of range, as std::stof and std::stod report it.
Converted<float> toFloat(std::string_view text);
Converted<double> toDouble(std::string_view text);

// toInt for callers that let a failure escape: throws std::invalid_argument("invalid stoi
// argument") or std::out_of_range("stoi argument out of range").
std::int32_t toIntOrThrow(std::string_view text);

// The same, but the number must end where the text ends: " 5" and "+5" convert, "5 " and "5ms" do
// not.
Converted<std::int32_t> toStrictInt(std::string_view text);

}  // namespace ravelin
