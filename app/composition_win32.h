// What the desktop's compositor knows of a window and does to it. It is asked only when it is
// needed: its library is not loaded at the start.
#pragma once

#include <windows.h>

namespace ravelin {

// How far a window reaches beyond what is seen of it, in pixels; 0 where nothing is known.
struct Border {
    LONG left = 0;
    LONG top = 0;
};
Border invisibleBorder(HWND window);

}  // namespace ravelin
