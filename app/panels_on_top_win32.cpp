#include "app/panels_on_top_win32.h"

#include <ranges>
#include <vector>

#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "support/own_executable.h"

namespace ravelin {
namespace {

bool isPanel(HWND window) {
    if (!windowTitle(window).starts_with(panelTitlePrefix)) return false;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process != GetCurrentProcessId() && runsOwnExecutable(process);
}

struct Search {
    HWND mainWindow;
    bool mainWindowIsOnTop;
    bool belowMainWindow = false;  // as windows come from the topmost to the lowest
    std::vector<HWND> misplaced{};
};

void look(Search& search, HWND window) {
    if (window == search.mainWindow) search.belowMainWindow = true;
    const bool misplaced =
        search.mainWindowIsOnTop ? search.belowMainWindow : isAlwaysOnTop(window);
    if (misplaced && isPanel(window)) search.misplaced.push_back(window);
}

BOOL CALLBACK lookAtNext(HWND window, LPARAM search) noexcept {
    try {
        look(*reinterpret_cast<Search*>(search), window);
    } catch (...) {
        return FALSE;
    }
    return TRUE;
}

// A panel that stands still must not hold up the main window.
void place(HWND window, bool onTop) {
    SetWindowPos(window, onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

}  // namespace

void alignPanelsWith(HWND mainWindow) {
    Search search{mainWindow, isAlwaysOnTop(mainWindow)};
    EnumWindows(lookAtNext, reinterpret_cast<LPARAM>(&search));
    // The lowest first, so that they keep their order as long as their processes keep up.
    for (const HWND window : std::views::reverse(search.misplaced))
        place(window, search.mainWindowIsOnTop);
}

void followMainWindow(HWND panel) {
    // Asked again after every change, as the setting may be switched in between: the main process
    // may then have placed this panel before it does so itself.
    for (bool onTop = false; isAlwaysOnTop(findWindowByTitle(mainWindowTitle)) != onTop;) {
        onTop = !onTop;
        setAlwaysOnTop(panel, onTop);
    }
}

}  // namespace ravelin
