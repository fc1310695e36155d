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

// Keeps a window from being seen though it is shown, or lets it be seen again. It is drawn and
// takes part in everything else all the same. Nothing happens where there is no compositor.
void setCloaked(HWND window, bool cloaked);

}  // namespace ravelin
