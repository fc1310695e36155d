#include "app/installer_hand_off.h"

#include <utility>

#include "app/child_panels.h"
#include "persistence/session_file.h"
#include "updater/installer_start.h"

namespace ravelin {

std::string LaunchInstaller(HeldInstaller& installer) {
    saveSession();
    endAllChildPanels();
    if (startInstaller(installer.path())) return {};
    discardInstaller(std::move(installer));
    return "Update failed: could not start the installer.";
}

}  // namespace ravelin
