// The program's entry. Everything it calls lives in the libraries.
#include <windows.h>
// Wants windows.h first.
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/console.h"
#include "app/console_modes.h"
#include "app/process_setup.h"
#include "app/run_modes.h"
#include "app/shell.h"
#include "support/win32_handles.h"
#include "updater/self_test.h"

namespace {

// The arguments behind the program's name; none when the command line cannot be split.
std::vector<std::string> splitCommandLine() {
    int count = 0;
    const ravelin::LocalArguments split(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; split && i < count; ++i)
        arguments.push_back(ravelin::narrowArgument(split.get()[i]));
    return arguments;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR narrowCommandLine, int) {
    using namespace ravelin;

    restrictLibrarySearch();
    removeBrowserVariables();
    const ComSession com;
    markDpiAware();
    const std::string rawCommandLine = narrowCommandLine;
    const Switches switches = gatherSwitches(splitCommandLine());

    if (consoleMode(switches) != ConsoleMode::none) {
        std::FILE* const output = consoleOutput();
        const int exitCode = runConsoleMode(switches, RunUpdateSelfTest, output);
        std::fflush(output);
        return exitCode;
    }
    try {
        if (isChildRun(rawCommandLine)) return runChildPanel(rawCommandLine);
        return runNormally(com, switches);
    } catch (const std::exception& error) {
        showError("Ravelin",
                  std::string("Ravelin ran into a problem and has to close.\n\n") + error.what());
        return 1;
    }
}
