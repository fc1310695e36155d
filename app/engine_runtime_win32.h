// The browser runtime that is installed on this computer. For the Windows half only.
#pragma once

#include <string>

namespace ravelin {

// The folder of the runtime that the view library loads, as it finds it; empty when there is none.
std::wstring engineFolder();

// The version of that runtime; empty when there is none. It changes while the program runs when the
// runtime is updated.
std::string installedEngineVersion();

// The folder in which the engine keeps what it stores for this program. All processes of the
// program name the same one to it and therefore share one browser process.
std::wstring engineDataFolder();

}  // namespace ravelin
