// What the input thread makes of every keyboard and mouse event of the desktop: global hotkeys,
// capture of a new key, the location picker, and what the recorder is offered.
//
// The handlers only raise request flags and signal the command event; the command thread carries
// the requests out. They run on the input thread alone, which owns the four tables of what is held
// down and what was swallowed. None of them blocks, but for the moment of a recorded append.
#pragma once

#include <cstdint>
#include <string_view>

#include "input/platform.h"

namespace ravelin {

struct KeyboardEvent {
    std::uint32_t vk = 0;
    bool down = false;       // press or auto-repeat; everything else is a release
    bool injected = false;   // flagged by the system: never a hotkey, never recorded
    std::uint32_t time = 0;  // the event's own stamp in milliseconds; it wraps around
};

struct MouseEvent {
    enum class Kind : std::uint8_t { move, press, release, wheel, other };
    Kind kind = Kind::other;
    std::uint32_t button = 0;  // 1 left, 2 right, 4 middle, 5 and 6 the side buttons
    platform::Point point;
    std::int32_t wheel = 0;  // signed delta
    bool injected = false;
    std::uint32_t time = 0;  // as of a key
};

// Both return whether the event is swallowed: hidden from every other program.
bool onKeyboardEvent(const KeyboardEvent& event);
bool onMouseEvent(const MouseEvent& event);
// Relative motion in raw mouse units, from raw input without the absolute flag.
void onRawMotion(std::int32_t dx, std::int32_t dy);
// The session was disconnected or locked: every key and button counts as up from here on.
void onSessionLeft();

// Arms the slot named "rec", "play", "auto", "keyspamhotkey", "keyspamtarget" or "unlock"; any
// other name changes nothing. Signals nothing.
void reassignKey(std::string_view slotName);
// F8, F7, F6, F9, F10 again. Targets stay.
void resetHotkeys();
// The next click chooses the fixed click position.
void pickLocation();

// Hands a captured code to the armed slot: a new hotkey, or one more key-spam target; Esc cancels.
// Then the slot is disarmed. The command thread alone.
void completeCapture();
// The armed slot's name as reassignKey takes it; empty when none is armed.
std::string_view armedSlotName();

}  // namespace ravelin
