#include <windows.h>

#include <climits>

#include "support/utf.h"

namespace ravelin {

namespace {

// The conversions count in int; a longer text is cut there rather than misread.
template <class View>
int lengthOf(View text) {
    return text.size() > INT_MAX ? INT_MAX : static_cast<int>(text.size());
}

std::wstring widenFrom(UINT codePage, std::string_view text) {
    const int length = lengthOf(text);
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    if (length == 0 || needed <= 0) return {};
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed);
    return wide;
}

}  // namespace

std::wstring widen(std::string_view utf8) {
    return widenFrom(CP_UTF8, utf8);
}

std::string narrow(std::wstring_view utf16) {
    const int length = lengthOf(utf16);
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, nullptr, 0, nullptr, nullptr);
    if (length == 0 || needed <= 0) return {};
    std::string text(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, text.data(), needed, nullptr, nullptr);
    return text;
}

std::string ansiToUtf8(std::string_view ansi) {
    return narrow(widenFrom(CP_ACP, ansi));
}

}  // namespace ravelin
