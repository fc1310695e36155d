// The last step of an update: the program makes way for the installer.
#pragma once

#include <string>

#include "updater/update_download.h"

namespace ravelin {

// Saves the session, ends the child panels and starts the installer, which goes on by itself.
// Returns the empty text and leaves the installer held, or a message for the user; the installer
// and its folder are then gone. User-interface thread.
std::string LaunchInstaller(HeldInstaller& installer);

}  // namespace ravelin
