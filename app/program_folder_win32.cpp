#include <windows.h>

#include "app/program_folder.h"

namespace ravelin {

std::filesystem::path programFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return L".";
    return std::filesystem::path(path, path + length).parent_path();
}

}  // namespace ravelin
