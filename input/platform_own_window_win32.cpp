#include <windows.h>

#include "input/platform.h"
#include "support/own_executable.h"

namespace ravelin::platform {

bool isOwnWindowAt(Point point) {
    const HWND window = WindowFromPoint({point.x, point.y});
    const HWND root = window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr;
    DWORD processId = 0;
    if (root == nullptr || GetWindowThreadProcessId(root, &processId) == 0) return false;
    // The detached panels are processes of their own that run the same executable.
    return processId == GetCurrentProcessId() || runsOwnExecutable(processId);
}

}  // namespace ravelin::platform
