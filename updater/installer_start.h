// Starts a downloaded installer.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// What the installer is told: to work silently, to close what runs, and that this is an update.
std::wstring installerParameters(std::wstring_view scope);

// Starts the installer and does not wait for it; false when the system or the user refuses. The
// file may be held.
bool startInstaller(const std::wstring& installerPath);

}  // namespace ravelin
