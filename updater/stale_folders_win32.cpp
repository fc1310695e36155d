#include "updater/stale_folders_win32.h"

// Wants windows.h first.
#include <aclapi.h>

#include "support/win32_handles.h"
#include "updater/admin_only_security_win32.h"
#include "updater/file_hold_win32.h"
#include "updater/stale_folders.h"
#include "updater/temporary_folder.h"

namespace ravelin {

namespace {

using EntryAction = std::function<void(const WIN32_FIND_DATAW& entry)>;

void forEachEntry(const std::wstring& pattern, const EntryAction& action) {
    WIN32_FIND_DATAW entry{};
    const FindHandle search(FindFirstFileW(pattern.c_str(), &entry));
    if (!search) return;
    do {
        action(entry);
    } while (FindNextFileW(search.get(), &entry));
}

bool belongsTo(const std::wstring& folder, const std::function<bool(PSID)>& wanted) {
    PSID owner = nullptr;
    LocalSecurityDescriptor descriptor;
    if (GetNamedSecurityInfoW(folder.c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner,
                              nullptr, nullptr, nullptr, descriptor.put()) != ERROR_SUCCESS)
        return false;
    return owner != nullptr && wanted(owner);
}

void deleteFilesIn(const std::wstring& folder) {
    forEachEntry(folder + L"\\*", [&](const WIN32_FIND_DATAW& entry) {
        // "." and ".." are folders as well.
        if (isRealFile(entry.dwFileAttributes))
            DeleteFileW((folder + L'\\' + entry.cFileName).c_str());
    });
}

// Everything goes by the folder's path. While the folder is held, a link cannot take its place
// between the look at its owner and the deletion of what is in it.
void sweepFolder(const std::wstring& folder, const std::function<bool(PSID)>& maySweep) {
    {
        const FileHandle held = holdFolder(folder);
        if (!held || !belongsTo(folder, maySweep)) return;
        deleteFilesIn(folder);
    }
    // Removes an empty folder or a link itself, so what stands there by now does no harm.
    RemoveDirectoryW(folder.c_str());
}

}  // namespace

bool isAdministratorsGroup(PSID owner) {
    const AllocatedSid administrators = administratorsSid();
    return administrators && EqualSid(owner, administrators.get());
}

void sweepUpdateFolders(const std::wstring& temporaryFolder,
                        const std::function<bool(PSID owner)>& maySweep) {
    forEachEntry(temporaryFolder + L"Ravelin-update-*", [&](const WIN32_FIND_DATAW& entry) {
        if (!isRealFolder(entry.dwFileAttributes)) return;
        sweepFolder(temporaryFolder + entry.cFileName, maySweep);
    });
}

void SweepStaleUpdateFolders() {
    if (const auto folder = temporaryFolder()) sweepUpdateFolders(*folder, isAdministratorsGroup);
}

}  // namespace ravelin
