// The last step of an update: the program makes way for the installer.
#pragma once

#include <string>

namespace ravelin {

// Saves the session, ends the child panels and starts the installer, which goes on by itself.
// Returns the empty text, or a message for the user; the installer and its folder are then gone.
// User-interface thread.
std::string LaunchInstaller(const std::wstring& installerPath);

}  // namespace ravelin
