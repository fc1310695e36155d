// ravelin-check: the checks of macro and theme files for servers on which people share them. Takes
// the switches of Ravelin's console modes and prints and exits as those do.
#include <cstdio>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/console_modes.h"

int main(int count, char** texts) {
    using namespace ravelin;
    Switches switches = gatherSwitches(std::vector<std::string>(texts + 1, texts + count));
    switches.selfTestUpdate.reset();  // for the program that updates itself
    if (consoleMode(switches) == ConsoleMode::none) {
        std::fputs(
            "usage: ravelin-check --validate-macro=FILE\n"
            "       ravelin-check --scan-macro=FILE\n"
            "       ravelin-check --validate-theme=FILE\n",
            stderr);
        return 2;
    }
    return runConsoleMode(switches, {}, stdout);
}
