#include "input/capture.h"
#include "input/engine_state.h"
#include "input/key_spammer.h"
#include "input/synthetic_input.h"

namespace ravelin {
namespace {

struct SlotName {
    CaptureSlot slot;
    std::string_view name;
};

constexpr SlotName slotNames[] = {
    {CaptureSlot::rec, "rec"},
    {CaptureSlot::play, "play"},
    {CaptureSlot::autoClicker, "auto"},
    {CaptureSlot::keySpamHotkey, "keyspamhotkey"},
    {CaptureSlot::keySpamTarget, "keyspamtarget"},
    {CaptureSlot::unlock, "unlock"},
};

void assign(CaptureSlot slot, std::uint32_t code) {
    switch (slot) {
        case CaptureSlot::rec:
            hotkeys.rec.exchange(code);
            break;
        case CaptureSlot::play:
            hotkeys.play.exchange(code);
            break;
        case CaptureSlot::autoClicker:
            hotkeys.autoClicker.exchange(code);
            break;
        case CaptureSlot::keySpamHotkey:
            hotkeys.keySpam.exchange(code);
            break;
        case CaptureSlot::keySpamTarget:
            appendKeySpamTarget(code);
            break;
        case CaptureSlot::unlock:
            hotkeys.unlock.exchange(code);
            break;
        case CaptureSlot::none:
            break;
    }
}

}  // namespace

void reassignKey(std::string_view slotName) {
    for (const auto& [slot, name] : slotNames)
        if (name == slotName) capture.slot.exchange(slot);
}

std::string_view armedSlotName() {
    const auto armed = capture.slot.load();
    for (const auto& [slot, name] : slotNames)
        if (slot == armed) return name;
    return {};
}

void resetHotkeys() {
    hotkeys.rec.exchange(119);
    hotkeys.play.exchange(118);
    hotkeys.autoClicker.exchange(117);
    hotkeys.keySpam.exchange(120);
    hotkeys.unlock.exchange(121);
}

void pickLocation() {
    capture.pickingLocation.exchange(true);
}

void completeCapture() {
    // The code first, the slot second: a key caught in between finds the slot still armed, and its
    // late code is dropped by the next pass instead of falling to whatever is armed then.
    const auto code = capture.code.exchange(0);
    if (code == 0) return;
    const auto slot = capture.slot.exchange(CaptureSlot::none);
    if (code != vkEscape) assign(slot, code);
}

}  // namespace ravelin
