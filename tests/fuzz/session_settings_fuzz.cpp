// Each of the three readers of settings lines makes of a line what its plain counterpart makes of
// it, over the defaults and over the settings that another line left behind.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "persistence/macro_settings.h"
#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "tests/support/live_state.h"
#include "tests/support/reference_settings.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

test::Fields live(const std::string& line) {
    return test::referenceSplit(line, ',');
}

}  // namespace

// Lines separated by line feeds, applied one after another.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    test::resetLiveState();
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const auto& line : test::referenceSplit(text, '\n')) {
        auto profile = live(captureToolSettings());
        check(macroSettingsToProfileLine(line) == test::referenceMacroSettings(line, profile));
        check(profileToSessionLine(captureToolSettings()) == sessionSettingsLine());

        applyToolSettings(line);
        test::referenceProfileSettings(line, profile);
        check(captureToolSettings() == test::referenceJoin(profile, ","));

        auto session = live(sessionSettingsLine());
        applySessionSettings(line);
        test::referenceSessionSettings(line, session);
        check(sessionSettingsLine() == test::referenceJoin(session, ","));
    }
    return 0;
}
