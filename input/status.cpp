#include "input/status.h"

#include <algorithm>
#include <string_view>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/recorder.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "support/json_object.h"

namespace ravelin {
namespace {

std::string_view stateName() {
    if (engine.recording.load()) return "Recording";
    return engine.playing.load() ? "Playing" : "Idle";
}

std::size_t eventCount() {
    const std::lock_guard lock(profileMutex);
    const Profile* profile = lockedCurrentProfile();
    return profile != nullptr ? profile->events.size() : 0;
}

std::vector<std::string> targetNames() {
    const auto count = std::clamp(keySpamTargets.count.load(), 0, KeySpamTargets::cap);
    std::vector<std::string> names(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = keyName(keySpamTargets.keys[i].load());
    return names;
}

}  // namespace

std::string getTrackerStatus(const std::vector<std::string>& restore) {
    const auto hotkeyName = [](const auto& code) { return keyName(code.load()); };
    return JsonObject()
        .text("state", stateName())
        .number("count", eventCount())
        .list("restore", restore)
        .text("hkRec", hotkeyName(hotkeys.rec))
        .text("hkPlay", hotkeyName(hotkeys.play))
        .text("hkAuto", hotkeyName(hotkeys.autoClicker))
        .text("hkKeySpam", hotkeyName(hotkeys.keySpam))
        .text("hkUnlock", hotkeyName(hotkeys.unlock))
        .flag("lockOn", hotkeys.lockOn.load())
        .flag("unlocked", hotkeys.unlocked.load())
        .list("keySpamTargets", targetNames())
        .flag("keySpamChord", keySpamTargets.chord.load())
        .number("ksCap", KeySpamTargets::cap)
        .text("reassigning", armedSlotName())
        .flag("panelHover", engine.panelHover.load())
        .flag("autoClicking", engine.autoClicking.load())
        .flag("keySpamming", engine.keySpamming.load())
        .flag("canUndoContinue", canUndoContinuation())
        .finish();
}

}  // namespace ravelin
