// What the program does to its own top-level windows. A null window is ignored everywhere.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/window_placement.h"

namespace ravelin {

// The first top-level window with exactly this title (UTF-8); null when there is none.
HWND findWindowByTitle(std::string_view title);
// UTF-8; empty when it has none.
std::string windowTitle(HWND window);

// The rectangle on the screen; nothing when the window is gone.
std::optional<Rect> windowRectangle(HWND window);
// Nothing for a null monitor or when the system does not tell.
std::optional<Monitor> describeMonitor(HMONITOR monitor);

// The program's own icons, large and small. One that is missing leaves the default icon.
void setWindowIcons(HWND window);

// Above all ordinary windows or among them again; neither moved, sized nor activated.
void setAlwaysOnTop(HWND window, bool on);
// False for a null window and for one that is gone.
bool isAlwaysOnTop(HWND window);

// To the top and the foreground, with the keyboard focus. Called on the thread of the window.
void bringToForeground(HWND window);
// The same for a window of any process, which is restored first when it is minimised.
void activateWindow(HWND window);

// Gives the window the content size that its page asks for, kept within the screen of the monitor
// nearest to it. `setContentSize` is the web view's.
void resizeWindow(HWND window, std::int32_t width, std::int32_t height,
                  const std::function<void(std::int32_t, std::int32_t)>& setContentSize);

}  // namespace ravelin
