#include "app/command_line.h"

#include <algorithm>
#include <iterator>

namespace ravelin {
namespace {

struct SwitchRow {
    std::string_view text;
    std::optional<std::string> Switches::*value;
};

constexpr SwitchRow switchTable[] = {
    {"--selftest-update=", &Switches::selfTestUpdate},
    {"--update-manifest=", &Switches::updateManifest},
    {"--validate-theme=", &Switches::validateTheme},
    {"--validate-macro=", &Switches::validateMacro},
    {"--scan-macro=", &Switches::scanMacro},
};

constexpr std::string_view childSwitch = "--child";

}  // namespace

std::string narrowArgument(std::wstring_view argument) {
    std::string narrow;
    narrow.reserve(argument.size());
    std::transform(argument.begin(), argument.end(), std::back_inserter(narrow),
                   [](wchar_t unit) { return static_cast<char>(unit & 0xFF); });
    return narrow;
}

Switches gatherSwitches(const std::vector<std::string>& arguments) {
    Switches switches;
    for (const std::string& argument : arguments) {
        const auto row =
            std::find_if(std::begin(switchTable), std::end(switchTable),
                         [&](const SwitchRow& r) { return argument.starts_with(r.text); });
        if (row != std::end(switchTable)) switches.*row->value = argument.substr(row->text.size());
    }
    return switches;
}

ConsoleMode consoleMode(const Switches& switches) {
    if (switches.selfTestUpdate) return ConsoleMode::selfTestUpdate;
    if (switches.validateTheme) return ConsoleMode::validateTheme;
    if (switches.validateMacro) return ConsoleMode::validateMacro;
    if (switches.scanMacro) return ConsoleMode::scanMacro;
    return ConsoleMode::none;
}

bool isChildRun(std::string_view rawCommandLine) {
    return rawCommandLine.find(childSwitch) != std::string_view::npos;
}

}  // namespace ravelin
