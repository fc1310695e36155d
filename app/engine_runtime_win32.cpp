#include "app/engine_runtime_win32.h"

#include <windows.h>
// Wants windows.h first.
#include <shlobj.h>

#include <array>

#include "app/engine_version.h"
#include "support/utf.h"

namespace ravelin {
namespace {

constexpr wchar_t clientState[] =
    L"SOFTWARE\\Microsoft\\EdgeUpdate\\ClientState\\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}";

std::wstring folderIn(HKEY root) {
    std::array<wchar_t, MAX_PATH> folder{};
    DWORD bytes = sizeof folder;
    if (RegGetValueW(root, clientState, L"EBWebView", RRF_RT_REG_SZ | RRF_SUBKEY_WOW6432KEY,
                     nullptr, folder.data(), &bytes) != ERROR_SUCCESS)
        return {};
    return folder.data();
}

}  // namespace

std::wstring engineFolder() {
    // One for all users comes before the user's own.
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        std::wstring folder = folderIn(root);
        if (!engineVersionOf(narrow(folder)).empty()) return folder;
    }
    return {};
}

std::string installedEngineVersion() {
    return engineVersionOf(narrow(engineFolder()));
}

std::wstring engineDataFolder() {
    std::array<wchar_t, MAX_PATH> roaming{};
    std::array<wchar_t, MAX_PATH> program{};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, roaming.data()))) return {};
    const DWORD length = GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
    if (length == MAX_PATH) return {};
    const std::wstring path(program.data(), length);
    return std::wstring(roaming.data()) + L'\\' + path.substr(path.find_last_of(L'\\') + 1);
}

}  // namespace ravelin
