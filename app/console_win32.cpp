#include "app/console.h"

#include <windows.h>

#include <cstdio>

namespace ravelin {

void attachConsole() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (output != nullptr && output != INVALID_HANDLE_VALUE) return;
    if (AttachConsole(ATTACH_PARENT_PROCESS)) {
        // On failure stdout is closed and prints go nowhere, which is all that is left to do.
        if (std::freopen("CONOUT$", "w", stdout) == nullptr) return;
    }
}

}  // namespace ravelin
