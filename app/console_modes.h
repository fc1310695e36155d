// The console modes: each checks one file, prints its report and gives the exit code.
#pragma once

#include <cstdio>
#include <functional>
#include <string>

#include "app/command_line.h"

namespace ravelin {

// Fills the report and returns whether everything in it passed.
using UpdateSelfTest = std::function<bool(const std::string& vectorsPath, std::string& report)>;

// Runs the console mode that the switches ask for and prints to `out`: lines beginning "OK" or the
// report on success, "REJECT " and a message on failure; the update self-test prints its
// report and a line that sums it up. Returns 0 or 1.
int runConsoleMode(const Switches& switches, const UpdateSelfTest& updateSelfTest, std::FILE* out);

}  // namespace ravelin
