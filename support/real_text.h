// Real numbers as text.
#pragma once

#include <cstddef>
#include <string>

namespace ravelin {

// A real number as a stream writes it by default: six significant digits without trailing zeros,
// plain or with an exponent, whatever the locale. Writes at most realTextSize characters at `out`
// and returns their end.
inline constexpr std::size_t realTextSize = 16;
char* writeReal(char* out, double value);
std::string realText(double value);

}  // namespace ravelin
