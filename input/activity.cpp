#include "input/activity.h"

#include <array>
#include <cstdint>
#include <mutex>

#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "support/json_object.h"

namespace ravelin {
namespace {

// What the status is made of, as plain values.
struct Glance {
    std::array<bool, 10> flags{};
    std::array<std::uint32_t, 5> hotkeyCodes{};
    CaptureSlot slot = CaptureSlot::none;
    std::int32_t targetCount = 0;
    std::array<std::uint32_t, KeySpamTargets::cap> targets{};
    std::size_t events = 0;
    std::size_t profileCount = 0;
    std::int32_t profile = 0;
    bool operator==(const Glance&) const = default;
};

Glance glance(bool panelsEnded) {
    Glance now;
    now.flags = {engine.recording.load(),        engine.playing.load(),
                 engine.autoClicking.load(),     engine.keySpamming.load(),
                 engine.panelHover.load(),       hotkeys.lockOn.load(),
                 hotkeys.unlocked.load(),        keySpamTargets.chord.load(),
                 capture.pickingLocation.load(), panelsEnded};
    now.hotkeyCodes = {hotkeys.rec.load(), hotkeys.play.load(), hotkeys.autoClicker.load(),
                       hotkeys.keySpam.load(), hotkeys.unlock.load()};
    now.slot = capture.slot.load();
    now.targetCount = keySpamTargets.count.load();
    for (std::size_t i = 0; i < now.targets.size(); ++i)
        now.targets[i] = keySpamTargets.keys[i].load();
    const std::lock_guard lock(profileMutex);
    if (const Profile* profile = lockedCurrentProfile()) now.events = profile->events.size();
    now.profileCount = profiles.size();
    now.profile = currentProfile;
    return now;
}

std::uint32_t countChanges(bool panelsEnded) {
    static Glance last;
    static std::uint32_t changes = 0;
    const Glance now = glance(panelsEnded);
    // What has ended stays so until somebody asks for the status.
    if (now != last || panelsEnded) ++changes;
    last = now;
    return changes;
}

}  // namespace

std::string getActivity(bool panelsEnded) {
    return JsonObject()
        .number("changes", countChanges(panelsEnded))
        .number("clicks", engine.clickCount.load())
        .number("presses", engine.pressCount.load())
        .finish();
}

}  // namespace ravelin
