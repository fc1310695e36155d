#include "app/installer_hand_off.h"

#include "app/child_panels.h"
#include "persistence/session_file.h"
#include "updater/installer_start.h"
#include "updater/update_download.h"

namespace ravelin {

std::string LaunchInstaller(const std::wstring& installerPath) {
    saveSession();
    endAllChildPanels();
    if (startInstaller(installerPath)) return {};
    discardInstaller(installerPath);
    return "Update failed: could not start the installer.";
}

}  // namespace ravelin
