// Bytes as hexadecimal text.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// Two lower-case digits a byte.
std::string encodeHex(std::string_view bytes);

// Digits of either case. An odd length or any other character gives the empty text.
std::string decodeHex(std::string_view digits);

}  // namespace ravelin
