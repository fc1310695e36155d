// UTF-8 inside, UTF-16 at the COM and Win32 boundary.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ravelin::browser {

std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

// A copy that a COM caller frees with CoTaskMemFree; null when memory is short.
LPWSTR comText(std::string_view utf8);

std::string guidText(REFGUID id);

// An environment variable as UTF-8; empty when it is not set.
std::string environmentText(const wchar_t* name);

// The path of a Unix file as Wine opens it, and the other way round (empty when there is none).
std::wstring fromUnixPath(std::string_view unixPath);
std::string toUnixPath(const std::wstring& path);

}  // namespace ravelin::browser
