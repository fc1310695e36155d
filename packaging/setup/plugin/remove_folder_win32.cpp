#include "packaging/setup/plugin/remove_folder_win32.h"

#include <windows.h>

#include <string_view>

#include "support/win32_handles.h"
#include "updater/file_hold_win32.h"
#include "updater/stale_folders.h"

namespace ravelin {

namespace {

void removeContents(const std::wstring& folder) {
    const FileHandle held = holdFolder(folder);
    WIN32_FIND_DATAW entry{};
    const FindHandle search(held ? FindFirstFileW((folder + L"\\*").c_str(), &entry)
                                 : INVALID_HANDLE_VALUE);
    if (!search) return;
    do {
        const std::wstring_view name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::wstring path = folder + L'\\' + entry.cFileName;
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (isRealFolder(entry.dwFileAttributes)) removeContents(path);
        // Both take away a link and leave what it leads to.
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveDirectoryW(path.c_str());
        else
            DeleteFileW(path.c_str());
    } while (FindNextFileW(search.get(), &entry));
}

}  // namespace

bool removeFolder(const std::wstring& folder) {
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return true;
    if (isRealFolder(attributes)) removeContents(folder);
    return RemoveDirectoryW(folder.c_str()) != FALSE;
}

}  // namespace ravelin
