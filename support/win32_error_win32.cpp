#include <array>
#include <cstdio>

#include "support/utf.h"
#include "support/win32_error.h"
#include "support/win32_handles.h"

namespace ravelin {

namespace {

std::string systemText(DWORD code) {
    DWORD flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    // The texts of the network errors lie in the library that reports them.
    const HMODULE network = GetModuleHandleW(L"winhttp.dll");
    if (network != nullptr && code >= WINHTTP_ERROR_BASE && code <= WINHTTP_ERROR_LAST) {
        flags |= FORMAT_MESSAGE_FROM_HMODULE;
    }
    LocalText text;
    // With ALLOCATE_BUFFER the parameter is where the address of the text is stored.
    const DWORD length =
        FormatMessageW(flags, network, code, 0, reinterpret_cast<LPWSTR>(text.put()), 0, nullptr);
    if (length == 0 || !text) return {};
    std::string result;
    for (const char c : narrow({text.get(), length})) {
        const bool blank = c == ' ' || c == '\r' || c == '\n' || c == '\t';
        if (!blank) {
            result += c;
        } else if (!result.empty() && result.back() != ' ') {
            result += ' ';
        }
    }
    if (!result.empty() && result.back() == ' ') result.pop_back();
    return result;
}

// HRESULTs are known by their hexadecimal form.
std::string numberText(DWORD code) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), (code & 0x80000000U) != 0 ? "0x%08lX" : "%lu", code);
    return text.data();
}

}  // namespace

std::string win32ErrorText(std::uint32_t code) {
    const DWORD lastError = GetLastError();
    const std::string text = systemText(code);
    const std::string number = numberText(code);
    SetLastError(lastError);
    return text.empty() ? "Error " + number : text + " (" + number + ")";
}

std::string lastErrorText() {
    return win32ErrorText(GetLastError());
}

}  // namespace ravelin
