#include <windows.h>

#include "input/foreground.h"
#include "support/process_rights.h"

namespace ravelin {

Foreground foregroundNow() {
    const HWND window = GetForegroundWindow();
    DWORD processId = 0;
    if (window == nullptr || GetWindowThreadProcessId(window, &processId) == 0)
        return Foreground::none;
    if (processId == GetCurrentProcessId()) return Foreground::reachable;
    const auto own = ownIntegrityLevel();
    const auto other = integrityLevelOf(processId);
    // A process whose rights may not even be read is one that we do not reach either.
    return own && other && *other <= *own ? Foreground::reachable : Foreground::elevated;
}

}  // namespace ravelin
