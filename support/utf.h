// Between the program's 8-bit texts, which are UTF-8, and what Windows speaks.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// UTF-8 to UTF-16 and back. What is no valid text becomes U+FFFD; nothing is dropped, and a
// zero inside stays.
std::wstring widen(std::string_view utf8);
std::string narrow(std::wstring_view utf16);

// A text in the user's code page as UTF-8.
std::string ansiToUtf8(std::string_view ansi);

}  // namespace ravelin
