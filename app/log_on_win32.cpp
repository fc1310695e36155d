#include "app/log_on.h"

#include <windows.h>

#include <array>
#include <string>

#include "support/file_system.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

constexpr wchar_t runKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t valueName[] = L"Ravelin";

// A path in quotes, so that blanks in it do not end it; empty when the path does not fit.
std::wstring quotedExecutable() {
    std::array<wchar_t, pathBufferSize> path{};
    const DWORD size = static_cast<DWORD>(path.size());
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), size);
    if (length == 0 || length >= size) return {};
    return L'"' + std::wstring(path.data(), length) + L'"';
}

}  // namespace

void setLaunchAtLogOn(bool enabled) {
    RegistryKey key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, runKey, 0, KEY_SET_VALUE, key.put()) != ERROR_SUCCESS)
        return;
    if (!enabled) {
        RegDeleteValueW(key.get(), valueName);
        return;
    }
    const std::wstring command = quotedExecutable();
    if (command.empty()) return;
    // The terminating zero is stored with the text.
    RegSetValueExW(key.get(), valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(command.c_str()),
                   static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
}

}  // namespace ravelin
