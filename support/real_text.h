// Real numbers as text.
#pragma once

#include <cstddef>
#include <string>

namespace ravelin {

// A real number as a stream writes it by default: six significant digits without trailing zeros,
// plain or with an exponent, whatever the locale. Returns its end; what stands behind it within
// realTextSize characters is overwritten too.
inline constexpr std::size_t realTextSize = 16;
char* writeReal(char* out, double value);
std::string realText(double value);

}  // namespace ravelin
