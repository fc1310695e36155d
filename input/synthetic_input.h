// Synthetic mouse and keyboard input, and the display names of keys and buttons.
//
// Every event is one record, sent alone; one that the system refuses is counted in `health`.
// Nothing here keeps state: any thread may call any of it, and the events of different threads
// interleave as the system takes them.
#pragma once

#include <cstdint>
#include <string>

#include "input/platform.h"

namespace ravelin {

namespace mouse_flag {
inline constexpr std::uint32_t move = 0x0001;
inline constexpr std::uint32_t leftDown = 0x0002;
inline constexpr std::uint32_t leftUp = 0x0004;
inline constexpr std::uint32_t rightDown = 0x0008;
inline constexpr std::uint32_t rightUp = 0x0010;
inline constexpr std::uint32_t middleDown = 0x0020;
inline constexpr std::uint32_t middleUp = 0x0040;
inline constexpr std::uint32_t sideDown = 0x0080;
inline constexpr std::uint32_t wheel = 0x0800;
inline constexpr std::uint32_t absolute = 0x8000;
}  // namespace mouse_flag

namespace key_flag {
inline constexpr std::uint32_t extended = 0x0001;
inline constexpr std::uint32_t up = 0x0002;
inline constexpr std::uint32_t scanCode = 0x0008;
}  // namespace key_flag

inline constexpr std::uint32_t vkEscape = 27;

// Moves the cursor to a pixel of the primary screen; other monitors are out of its reach. The
// screen's size is read anew on every call.
void moveMouseAbsolute(std::int32_t x, std::int32_t y);
// Moves the cursor by raw mouse units.
void moveMouseRelative(std::int32_t dx, std::int32_t dy);
// One button or wheel event where the cursor is: `flags` is one mouse_flag, or 0 for an event that
// does nothing; `mouseData` the signed wheel delta.
void sendMouseButton(std::uint32_t flags, std::uint32_t mouseData = 0);
// Presses or releases a key by its scan code of this moment; a key without one is sent as 0.
void sendKey(std::uint32_t vk, bool down);

// The record that sendKey sends, and its sending, for callers that keep the scan code.
platform::KeyInput keyRecord(std::uint32_t scan, bool extended, bool down);
void sendKeyRecord(const platform::KeyInput& record);
// Page Up, Page Down, End, Home, the arrows, Insert and Delete. No other key counts as extended, so
// right Ctrl and right Alt are sent and named as their left-hand twins.
bool isExtendedKey(std::uint32_t vk);

// The display text of a key or mouse-button code as UTF-8: the system's name in the user's
// language, or "Key[code]" where it has none.
std::string keyName(std::uint32_t code);

}  // namespace ravelin
