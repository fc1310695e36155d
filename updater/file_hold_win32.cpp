#include "updater/file_hold_win32.h"

#include <array>
#include <utility>

#include "updater/stale_folders.h"

namespace ravelin {

namespace {

// Declared in this order so that the file is let go of before its folder.
struct Hold {
    FileHandle folder;
    FileHandle file;
};

// Those of what is open, which may be something else than what the path names by now.
DWORD attributesOf(const FileHandle& open) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(open.get(), &information)) return INVALID_FILE_ATTRIBUTES;
    return information.dwFileAttributes;
}

// Where it lies in truth, whatever links led there; empty when that cannot be told.
std::wstring placeOf(const FileHandle& open) {
    std::array<wchar_t, 1024> path{};
    const DWORD size = static_cast<DWORD>(path.size());
    // By the volume's own name: not every volume that has a letter can be asked for it.
    const DWORD length = GetFinalPathNameByHandleW(open.get(), path.data(), size, VOLUME_NAME_NT);
    return length < size ? std::wstring(path.data(), length) : std::wstring();
}

// A folder of the path may have been exchanged for a link between opening the one and the other.
bool liesIn(const FileHandle& folder, const FileHandle& file, const std::wstring& name) {
    const std::wstring place = placeOf(folder);
    return !place.empty() && placeOf(file) == place + name;
}

}  // namespace

FileHandle holdFolder(const std::wstring& folder) {
    // Windows compares share modes only with handles that may read, write or delete, so a handle
    // that asks for attributes alone would hold nothing.
    FileHandle open(CreateFileW(
        folder.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!open || !isRealFolder(attributesOf(open))) return {};
    return open;
}

std::shared_ptr<void> holdFile(const std::wstring& path) {
    const std::size_t cut = path.find_last_of(L'\\');
    if (cut == std::wstring::npos) return nullptr;
    FileHandle folder = holdFolder(path.substr(0, cut));
    if (!folder) return nullptr;
    FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file || !isRealFile(attributesOf(file)) || !liesIn(folder, file, path.substr(cut)))
        return nullptr;
    return std::make_shared<Hold>(Hold{std::move(folder), std::move(file)});
}

}  // namespace ravelin
