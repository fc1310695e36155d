// The console modes: each checks one file, prints its report and gives the exit code.
#pragma once

#include <cstdio>

#include "app/command_line.h"

namespace ravelin {

// Runs the console mode that the switches ask for and prints to `out`: lines beginning "OK" or the
// report on success, "REJECT " and a message on failure. Returns 0 or 1.
int runConsoleMode(const Switches& switches, std::FILE* out);

}  // namespace ravelin
