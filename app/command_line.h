// What the command line asks for: switches with values, and which of the three kinds of run it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ravelin {

// The value of each switch that was given; the last occurrence counts.
struct Switches {
    std::optional<std::string> selfTestUpdate;
    std::optional<std::string> updateManifest;
    std::optional<std::string> validateTheme;
    std::optional<std::string> validateMacro;
    std::optional<std::string> scanMacro;
};

enum class ConsoleMode { none, selfTestUpdate, validateTheme, validateMacro, scanMacro };

// Keeps the low byte of each unit, so paths must be plain ASCII.
std::string narrowArgument(std::wstring_view argument);

// `arguments` are those behind the program's name.
Switches gatherSwitches(const std::vector<std::string>& arguments);

// The one console mode that runs: self-test before theme check before macro check before scan.
ConsoleMode consoleMode(const Switches& switches);

// Whether the raw command line asks for a child panel: "--child" anywhere in it.
bool isChildRun(std::string_view rawCommandLine);

}  // namespace ravelin
