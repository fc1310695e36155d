#include <windows.h>

#include <array>

#include "product.h"
#include "support/utf.h"
#include "support/win32_handles.h"
#include "updater/install_scope.h"

namespace ravelin {

namespace {

RegistryKey openUninstallKey(HKEY root, REGSAM view) {
    RegistryKey key;
    RegOpenKeyExW(root, widen(product::uninstallKey).c_str(), 0, KEY_READ | view, key.put());
    return key;
}

std::wstring installLocation(const RegistryKey& key) {
    if (!key) return {};
    std::array<wchar_t, 520> text{};
    // One unit less than there is room for: a text without an end of its own is still ended.
    DWORD bytes = static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t));
    DWORD type = REG_NONE;
    const LSTATUS status = RegQueryValueExW(key.get(), L"InstallLocation", nullptr, &type,
                                            reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (status != ERROR_SUCCESS || type != REG_SZ) return {};
    return text.data();
}

std::wstring programFolder() {
    std::array<wchar_t, 260> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring file(path.data(), length);
    const std::size_t cut = file.find_last_of(L"\\/");
    return cut == std::wstring::npos ? file : file.substr(0, cut);
}

}  // namespace

std::wstring comparablePath(std::wstring path) {
    path.erase(path.find_last_not_of(L"\\/") + 1);
    CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
    return path;
}

const wchar_t* ChooseInstallScope() {
    const RegistryKey machine = openUninstallKey(HKEY_LOCAL_MACHINE, KEY_WOW64_64KEY);
    const RegistryKey user = openUninstallKey(HKEY_CURRENT_USER, 0);
    return chooseInstallScope(comparablePath(programFolder()),
                              {static_cast<bool>(machine), comparablePath(installLocation(machine)),
                               comparablePath(installLocation(user))});
}

}  // namespace ravelin
