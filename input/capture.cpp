#include "input/capture.h"

#include <array>

#include "input/engine_state.h"
#include "input/hotkey_check.h"
#include "input/recorder.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"

namespace ravelin {
namespace {

constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t middleButton = 4;

// What is held down, and which of it other programs were never told of. Keys by the low byte of
// their code. Of the input thread alone.
struct Held {
    std::array<bool, 256> down{};
    std::array<bool, 256> swallowed{};

    // Whether this is a first press, no repeat, of a hotkey: a hotkey fires once a physical press.
    bool pressesHotkey(std::uint32_t code) {
        const std::size_t i = code & 0xFF;
        if (down[i]) return false;
        down[i] = true;
        swallowed[i] = hotkeys.enabled.load() && acceptHotkey(code);
        return swallowed[i];
    }
    bool isSwallowed(std::uint32_t code) const { return swallowed[code & 0xFF]; }
    // Whether the press was swallowed, so that the release stays hidden with it.
    bool release(std::uint32_t code) {
        const std::size_t i = code & 0xFF;
        const bool hidden = swallowed[i];
        down[i] = swallowed[i] = false;
        return hidden;
    }
};

Held keys;
Held buttons;

void captureCode(std::uint32_t code) {
    capture.code.exchange(code);
    platform::signal(platform::Event::command);
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

bool swallowsPress(const MouseEvent& event) {
    if (answersPicker(event)) return true;
    if (slotTakesButton(capture.slot.load(), event.button)) {
        captureCode(event.button);
        return true;
    }
    return buttons.pressesHotkey(event.button);
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
    if (capture.slot.load() != CaptureSlot::none) {
        captureCode(event.vk);
        return true;
    }
    return keys.pressesHotkey(event.vk) || keys.isSwallowed(event.vk);
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
