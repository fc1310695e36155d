#include "updater/stale_folders_win32.h"

// Wants windows.h first.
#include <aclapi.h>

#include "support/win32_handles.h"
#include "updater/admin_only_security_win32.h"
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

void removeFolderOfFiles(const std::wstring& folder) {
    forEachEntry(folder + L"\\*", [&](const WIN32_FIND_DATAW& entry) {
        // "." and ".." are folders as well.
        if (isRealFile(entry.dwFileAttributes))
            DeleteFileW((folder + L'\\' + entry.cFileName).c_str());
    });
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
        const std::wstring folder = temporaryFolder + entry.cFileName;
        if (belongsTo(folder, maySweep)) removeFolderOfFiles(folder);
    });
}

void SweepStaleUpdateFolders() {
    if (const auto folder = temporaryFolder()) sweepUpdateFolders(*folder, isAdministratorsGroup);
}

}  // namespace ravelin
