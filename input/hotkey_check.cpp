#include "input/hotkey_check.h"

#include "input/engine_state.h"
#include "input/requests.h"

namespace ravelin {
namespace {

// The toggle request of a hotkey, or null.
Requests::Flag* toggleOf(std::uint32_t code) {
    if (code == hotkeys.rec.load()) return &requests.recToggle;
    if (code == hotkeys.play.load()) return &requests.playToggle;
    if (code == hotkeys.autoClicker.load()) return &requests.clickerToggle;
    if (code == hotkeys.keySpam.load()) return &requests.keySpamToggle;
    return nullptr;
}

}  // namespace

bool acceptHotkey(std::uint32_t code) {
    const bool lockOn = hotkeys.lockOn.load();
    if (lockOn && code == hotkeys.unlock.load()) {
        if (!flip(hotkeys.unlocked)) {
            raiseToolStops();
            raiseRequest(requests.stopPlayback);
        }
        platform::signal(platform::Event::command);
        return true;
    }
    if (lockOn && !hotkeys.unlocked.load()) return false;
    Requests::Flag* toggle = toggleOf(code);
    if (toggle == nullptr) return false;
    postRequest(*toggle);
    return true;
}

}  // namespace ravelin
