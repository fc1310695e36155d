// A plain model of what the page's and the panels' methods do with the tool settings, the targets
// and the requests: by name, on texts, one method after another.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "persistence/session_settings.h"
#include "tests/support/reference_settings.h"
#include "tests/support/simulated_desktop.h"

namespace ravelin::test {

struct ReferenceState {
    Fields settings;  // the 36 fields of a session
    std::string armedSlot;
    bool hover = false;
    bool clickerStart = false;
    bool clickerStop = false;
    bool keySpamStart = false;
    bool keySpamStop = false;
    bool commandSignalled = false;
    bool operator==(const ReferenceState&) const = default;
};

// The live state in the model's terms.
inline ReferenceState liveState() {
    return {.settings = referenceSplit(sessionSettingsLine(), ','),
            .armedSlot = std::string(armedSlotName()),
            .hover = engine.panelHover.load(),
            .clickerStart = requests.clickerStart.load() != 0,
            .clickerStop = requests.clickerStop.load() != 0,
            .keySpamStart = requests.keySpamStart.load() != 0,
            .keySpamStop = requests.keySpamStop.load() != 0,
            .commandSignalled = desktop.isSignalled(platform::Event::command)};
}

// Stores `count` pieces from the field `first` (counted from 1) on, up to one that is no number.
inline void referenceUpdate(Fields& settings, const std::string& value, std::size_t first,
                            std::size_t count) {
    const auto pieces = referenceSplit(value, ',');
    if (pieces.size() < count) return;
    for (std::size_t i = 0; i < count; ++i)
        if (!storeInt(settings[first - 1 + i], pieces[i])) return;
}

inline void referenceRemove(ReferenceState& state, const std::string& value, bool running) {
    const auto index = standardInt(value);
    auto targets = referenceSplit(state.settings[31], '|');
    const auto count = static_cast<std::int64_t>(targets.size());
    if (!index || index.value < 0 || index.value >= count) return;
    targets.erase(targets.begin() + index.value);
    state.settings[31] = referenceJoin(targets, "|");
    if (!targets.empty()) {
        state.settings[30] = targets[0];
    } else if (running) {
        state.keySpamStop = state.commandSignalled = true;
    }
}

// False when no method of the panels has that name.
inline bool referenceAction(ReferenceState& state, const std::string& method,
                            const std::string& value, bool running) {
    bool* const request = method == "startSpammer"   ? &state.clickerStart
                          : method == "stopSpammer"  ? &state.clickerStop
                          : method == "startKeySpam" ? &state.keySpamStart
                          : method == "stopKeySpam"  ? &state.keySpamStop
                                                     : nullptr;
    if (request != nullptr) {
        *request = state.commandSignalled = true;
    } else if (method == "updateSpammer") {
        referenceUpdate(state.settings, value, 1, 9);
    } else if (method == "updateKeySpam") {
        referenceUpdate(state.settings, value, 24, 6);
    } else if (method == "removeKeySpamTarget") {
        referenceRemove(state, value, running);
    } else if (method == "setKeySpamChordMode") {
        state.settings[32] = value == "1" ? "1" : "0";
    } else {
        return false;
    }
    return true;
}

}  // namespace ravelin::test
