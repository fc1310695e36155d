#include "updater/install_scope.h"

namespace ravelin {

const wchar_t* chooseInstallScope(const std::wstring& programFolder,
                                  const InstallRecords& records) {
    const auto isHere = [&](const std::wstring& location) {
        return !location.empty() && location == programFolder;
    };
    if (isHere(records.machineLocation)) return allUsers;
    if (isHere(records.userLocation)) return currentUser;
    return records.machineKeyOpened ? allUsers : currentUser;
}

}  // namespace ravelin
