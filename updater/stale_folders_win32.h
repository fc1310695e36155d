// The sweep of stale update folders with its decisions in the open. For the Windows half only.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace ravelin {

// Whether the owner is the built-in Administrators group.
bool isAdministratorsGroup(PSID owner);

// Sweeps below this folder (with its trailing backslash) what belongs to an owner that may be
// swept. A folder that somebody has open to delete or rename it stays.
void sweepUpdateFolders(const std::wstring& temporaryFolder,
                        const std::function<bool(PSID owner)>& maySweep);

}  // namespace ravelin
