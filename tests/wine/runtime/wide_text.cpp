#include "wide_text.h"

#include <objbase.h>

#include <algorithm>
#include <cstring>

namespace ravelin::browser {

std::wstring toWide(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(length, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), length);
    return wide;
}

std::string toUtf8(std::wstring_view wide) {
    const int units = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(std::max(length, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

LPWSTR comText(std::string_view utf8) {
    const std::wstring wide = toWide(utf8);
    const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
    auto* copy = static_cast<LPWSTR>(CoTaskMemAlloc(bytes));
    if (copy != nullptr) std::memcpy(copy, wide.c_str(), bytes);
    return copy;
}

std::string guidText(REFGUID id) {
    wchar_t text[64] = L"";
    const int length = StringFromGUID2(id, text, 64);
    return length > 1 ? toUtf8({text, static_cast<std::size_t>(length - 1)}) : std::string();
}

std::string environmentText(const wchar_t* name) {
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0) return {};
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), size));
    return toUtf8(value);
}

std::wstring fromUnixPath(std::string_view unixPath) {
    std::wstring path = toWide(unixPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return L"\\\\?\\unix" + path;
}

std::string toUnixPath(const std::wstring& path) {
    using Convert = char*(CDECL*)(LPCWSTR);
    const auto convert = reinterpret_cast<Convert>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
    if (convert == nullptr) return {};
    char* converted = convert(path.c_str());
    if (converted == nullptr) return {};
    std::string unixPath = converted;
    HeapFree(GetProcessHeap(), 0, converted);
    return unixPath;
}

}  // namespace ravelin::browser
