// What a second start of the program does with the first one.
#pragma once

#include <windows.h>

namespace ravelin {

// The main window of a running first instance, whatever its version, or else its activation window.
// Null when neither is to be found.
HWND findFirstInstanceWindow();

}  // namespace ravelin
