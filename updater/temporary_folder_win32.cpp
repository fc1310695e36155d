#include <windows.h>

#include <array>

#include "updater/temporary_folder.h"

namespace ravelin {

std::optional<std::wstring> temporaryFolder() {
    std::array<wchar_t, 260> path{};
    const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
    if (length == 0 || length >= path.size()) return std::nullopt;
    return std::wstring(path.data(), length);
}

}  // namespace ravelin
