// Panel windows beside a main window that is kept on top of other programs.
#pragma once

#include <windows.h>

namespace ravelin {

// Puts every panel window that lies below the main window above it and keeps it on top too, while
// the main window is kept on top; otherwise lets those go that are. Panels are the windows of other
// processes of this executable, whoever started them. Does not wait for them.
void alignPanelsWith(HWND mainWindow);

// Keeps a panel's window that is about to open on top when the main window is. Called in the
// panel's process once the window has its title.
void followMainWindow(HWND panel);

}  // namespace ravelin
