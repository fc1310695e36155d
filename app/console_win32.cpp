#include "app/console.h"

#include <windows.h>

#include <cstdio>

namespace ravelin {

std::FILE* consoleOutput() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (output != nullptr && output != INVALID_HANDLE_VALUE) return stdout;
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return stdout;
    if (std::freopen("CONOUT$", "w", stdout) != nullptr) return stdout;
    // Not every C library reopens a stream that never had a file; Wine's does not.
    std::FILE* const console = std::fopen("CONOUT$", "w");
    return console != nullptr ? console : stdout;
}

}  // namespace ravelin
