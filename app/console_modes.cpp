#include "app/console_modes.h"

#include <string>

#include "persistence/macro_file.h"
#include "persistence/profiles.h"
#include "scanner/report.h"
#include "scanner/scan.h"

namespace ravelin {
namespace {

int reject(std::FILE* out, const std::string& message) {
    std::fprintf(out, "REJECT %s\n", message.c_str());
    return 1;
}

int selfTestUpdate(const std::string& path, const UpdateSelfTest& selfTest, std::FILE* out) {
    std::string report;
    const bool passed = selfTest(path, report);
    std::fprintf(out, "%sSELFTEST-UPDATE: %s\n", report.c_str(),
                 passed ? "ALL PASS" : "FAILURES ABOVE");
    return passed ? 0 : 1;
}

int validateMacro(const std::string& path, std::FILE* out) {
    Profile profile;
    if (const auto error = readMacroFile(path, profile); !error.empty()) return reject(out, error);
    std::fprintf(out, "OK %d events\n", static_cast<int>(profile.events.size()));
    return 0;
}

int scanMacro(const std::string& path, std::FILE* out) {
    Profile profile;
    if (const auto error = readMacroFile(path, profile); !error.empty()) return reject(out, error);
    std::fprintf(out, "%s\n", MacroScan::ReportJson(MacroScan::Scan(profile.events)).c_str());
    return 0;
}

}  // namespace

int runConsoleMode(const Switches& switches, const UpdateSelfTest& updateSelfTest, std::FILE* out) {
    switch (consoleMode(switches)) {
        case ConsoleMode::selfTestUpdate:
            return selfTestUpdate(*switches.selfTestUpdate, updateSelfTest, out);
        case ConsoleMode::validateTheme:
            return reject(out, "This version cannot check themes.");
        case ConsoleMode::validateMacro:
            return validateMacro(*switches.validateMacro, out);
        case ConsoleMode::scanMacro:
            return scanMacro(*switches.scanMacro, out);
        case ConsoleMode::none:
            break;
    }
    return 0;
}

}  // namespace ravelin
