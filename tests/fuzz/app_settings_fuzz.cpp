// The file of the application settings is read as the plain reader reads it, and what was read is
// written so that it is read the same again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "persistence/app_settings.h"
#include "persistence/data_folder.h"
#include "tests/support/environment.h"
#include "tests/support/live_state.h"
#include "tests/support/reference_settings.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

const std::string& settingsFile() {
    static const test::TempFolder folder;
    static const std::string path = [] {
        test::setEnvironment("LOCALAPPDATA", folder.path());
        return dataFile("appsettings.txt");
    }();
    return path;
}

std::string saved() {
    saveAppSettings();
    return test::readBytes(settingsFile());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    test::resetLiveState();
    settingsFile();
    test::ReferenceAppSettings expected;
    test::referenceAppSettings(saved(), expected);
    expected.positionSaved = false;

    test::writeBytes(settingsFile(), bytes);
    loadAppSettings();
    test::referenceAppSettings(bytes, expected);
    check(appSettings.positionSaved == expected.positionSaved);
    const auto text = saved();
    std::size_t lines = 0;
    for (const auto& line : test::referenceLines(text, LoneReturn::kept)) {
        const auto equals = line.find('=');
        check(line.substr(equals + 1) == expected.values.at(line.substr(0, equals)));
        ++lines;
    }
    check(lines == expected.values.size());

    test::resetLiveState();
    loadAppSettings();
    check(saved() == text);
    return 0;
}
