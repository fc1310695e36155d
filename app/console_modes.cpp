#include "app/console_modes.h"

#include <cstdint>
#include <exception>
#include <new>
#include <string>

#include "persistence/macro_file.h"
#include "persistence/profiles.h"
#include "scanner/report.h"
#include "scanner/scan.h"
#include "themes/theme_file.h"

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

int validateTheme(const std::string& path, std::FILE* out) {
    ThemeRecord theme;
    std::string error;
    std::int32_t pieces = 0;
    bool hasFont = false;
    if (!readThemeFile(path, theme, &error, &pieces, &hasFont)) return reject(out, error);
    if (theme.hasSkin) {
        std::fprintf(out, "OK skin %d pieces%s\n", pieces, hasFont ? " +font" : "");
    } else {
        std::fprintf(out, "OK colours\n");
    }
    return 0;
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

int runMode(const Switches& switches, const UpdateSelfTest& updateSelfTest, std::FILE* out) {
    switch (consoleMode(switches)) {
        case ConsoleMode::selfTestUpdate:
            return selfTestUpdate(*switches.selfTestUpdate, updateSelfTest, out);
        case ConsoleMode::validateTheme:
            return validateTheme(*switches.validateTheme, out);
        case ConsoleMode::validateMacro:
            return validateMacro(*switches.validateMacro, out);
        case ConsoleMode::scanMacro:
            return scanMacro(*switches.scanMacro, out);
        case ConsoleMode::none:
            break;
    }
    return 0;
}

}  // namespace

int runConsoleMode(const Switches& switches, const UpdateSelfTest& updateSelfTest, std::FILE* out) {
    try {
        return runMode(switches, updateSelfTest, out);
    } catch (const std::bad_alloc&) {
        return reject(out, "out of memory");
    } catch (const std::exception& error) {
        return reject(out, error.what());
    }
}

}  // namespace ravelin
