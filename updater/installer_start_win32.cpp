#include <windows.h>
// Wants windows.h first.
#include <shellapi.h>

#include "support/win32_handles.h"
#include "updater/install_scope.h"
#include "updater/installer_start.h"

namespace ravelin {

bool startInstaller(const std::wstring& installerPath) {
    const std::wstring parameters = installerParameters(ChooseInstallScope());
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = L"open";
    info.lpFile = installerPath.c_str();
    info.lpParameters = parameters.c_str();
    info.nShow = SW_HIDE;
    if (!ShellExecuteExW(&info)) return false;
    const ProcessHandle ignored(info.hProcess);
    return true;
}

}  // namespace ravelin
