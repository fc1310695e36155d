// Whether an update is installed for everybody on the machine or for this user: wherever this copy
// of the program came from.
#pragma once

#include <string>

namespace ravelin {

inline constexpr wchar_t allUsers[] = L"/ALLUSERS";
inline constexpr wchar_t currentUser[] = L"/CURRENTUSER";

// What the setup program wrote down when it installed, the folders as comparable paths. Absent and
// unreadable values are empty.
struct InstallRecords {
    bool machineKeyOpened = false;
    std::wstring machineLocation;
    std::wstring userLocation;
};

// A folder path in the form in which two are compared: without trailing separators, lower case.
std::wstring comparablePath(std::wstring path);

// `programFolder` is a comparable path as well.
const wchar_t* chooseInstallScope(const std::wstring& programFolder, const InstallRecords& records);

// The same for this copy of the program and the records of this machine.
const wchar_t* ChooseInstallScope();

}  // namespace ravelin
