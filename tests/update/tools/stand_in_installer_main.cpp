// Stands for a setup program: writes down the command line that it was started with, into the file
// that RAVELIN_INSTALLER_LOG names, and ends with the exit code in RAVELIN_INSTALLER_EXIT.
#include <windows.h>

#include <cstdio>
#include <cstdlib>

int main() {
    if (const char* path = std::getenv("RAVELIN_INSTALLER_LOG")) {
        if (std::FILE* file = std::fopen(path, "wb")) {
            std::fputs(GetCommandLineA(), file);
            std::fclose(file);
        }
    }
    const char* exitCode = std::getenv("RAVELIN_INSTALLER_EXIT");
    return exitCode != nullptr ? std::atoi(exitCode) : 0;
}
