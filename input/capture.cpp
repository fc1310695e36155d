#include "input/capture.h"

#include <array>
#include <utility>

#include "input/engine_state.h"
#include "input/hotkey_check.h"
#include "input/recorder.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"

namespace ravelin {
namespace {

constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t middleButton = 4;

// A held key repeats at least twice a second, or as slowly as Filter Keys was told to. After a
// longer silence its release was lost on the way (a number pad key under Shift, the secure desktop,
// a window with higher rights), and what looks like a repeat is a new press. The key's asynchronous
// state would not tell: the system never saw a swallowed key go down.
constexpr std::uint32_t longestRepeatMs = 1500;

bool isTooLongForARepeat(std::uint32_t silenceMs) {
    return silenceMs >= longestRepeatMs && silenceMs >= 2 * platform::filterKeysPauseMs();
}

// The keys or buttons that are down, and which of them other programs were never told of, by the
// low byte of their code. Of the input thread alone.
class Held {
  public:
    // Notes a press or repeat. Returns whether it is a first press, which is not swallowed so far.
    bool press(std::uint32_t code, std::uint32_t time) {
        Key& key = keys_[code & 0xFF];
        const bool first = !key.down || isTooLongForARepeat(time - key.time);
        key.time = time;
        if (first) key.swallowed = false;
        key.down = true;
        return first;
    }
    // Hides the press that was just noted, its repeats and its release from other programs.
    void swallow(std::uint32_t code) { keys_[code & 0xFF].swallowed = true; }
    bool isSwallowed(std::uint32_t code) const { return keys_[code & 0xFF].swallowed; }
    // Returns whether the press was swallowed, so that the release stays hidden with it.
    bool release(std::uint32_t code) { return std::exchange(keys_[code & 0xFF], {}).swallowed; }

  private:
    struct Key {
        bool down = false;
        bool swallowed = false;
        std::uint32_t time = 0;  // of the last press or repeat
    };
    std::array<Key, 256> keys_{};
};

Held keys;
Held buttons;

void captureCode(std::uint32_t code) {
    capture.code.exchange(code);
    platform::signal(platform::Event::command);
}

// A hotkey fires once a physical press.
bool firesHotkey(Held& held, std::uint32_t code, bool firstPress) {
    if (!firstPress || !hotkeys.enabled.load() || !acceptHotkey(code)) return false;
    held.swallow(code);
    return true;
}

// A left press chooses the fixed point, a right or middle one cancels; side buttons are no answer.
bool answersPicker(const MouseEvent& event) {
    if (event.button > middleButton || !capture.pickingLocation.load()) return false;
    if (event.button == leftButton) {
        toolSettings.fixedX.exchange(event.point.x);
        toolSettings.fixedY.exchange(event.point.y);
        toolSettings.locMode.exchange(1);
    }
    capture.pickingLocation.exchange(false);
    if (event.button == leftButton) syncCurrentProfile();
    return true;
}

// Any button can be a hotkey, but for the left one as the unlock key: it could no longer click the
// page to undo that. No button can be pressed by the key spammer.
bool slotTakesButton(CaptureSlot slot, std::uint32_t button) {
    return slot != CaptureSlot::none && slot != CaptureSlot::keySpamTarget &&
           !(slot == CaptureSlot::unlock && button == leftButton);
}

// A press that answers the picker or a capture counts as down like any other: otherwise its next
// repeat would be a first press of the hotkey that it has just become.
bool swallowsPress(const MouseEvent& event) {
    const bool first = buttons.press(event.button, event.time);
    if (answersPicker(event)) return true;
    if (slotTakesButton(capture.slot.load(), event.button)) {
        captureCode(event.button);
        return true;
    }
    return firesHotkey(buttons, event.button, first);
}

bool swallows(const MouseEvent& event) {
    switch (event.kind) {
        case MouseEvent::Kind::press:
            return swallowsPress(event);
        case MouseEvent::Kind::release:
            return buttons.release(event.button);
        default:
            return false;
    }
}

bool swallows(const KeyboardEvent& event) {
    if (!event.down) return keys.release(event.vk);
    const bool first = keys.press(event.vk, event.time);
    if (capture.slot.load() != CaptureSlot::none) {
        captureCode(event.vk);
        return true;
    }
    return firesHotkey(keys, event.vk, first) || keys.isSwallowed(event.vk);
}

}  // namespace

bool onKeyboardEvent(const KeyboardEvent& event) {
    if (event.injected) return false;
    if (swallows(event)) return true;
    recordKey(event);
    return false;
}

bool onMouseEvent(const MouseEvent& event) {
    if (event.injected) {
        noteCursor(event);
        return false;
    }
    if (swallows(event)) return true;
    recordMouse(event);
    return false;
}

void onRawMotion(std::int32_t dx, std::int32_t dy) {
    recordRawMotion(dx, dy);
}

void onSessionLeft() {
    keys = {};
    buttons = {};
    platform::signal(platform::Event::command);
}

}  // namespace ravelin
