// The surroundings of a window.
#pragma once

#include <windows.h>

#include "app/environment.h"

namespace ravelin {

// Returns how much larger than at 96 DPI the system shows the window.
double windowScale(HWND window);
Environment environmentOf(HWND window);

}  // namespace ravelin
