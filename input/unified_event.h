// One recorded input event, shared by the recorder, the player, profiles, the session and macro
// files and the macro safety scanner.
#pragma once

#include <cstdint>

namespace ravelin {

enum class EventKind : std::int32_t {
    MouseMove = 0,    // absolute position from the mouse hook
    MouseRaw = 1,     // relative motion from raw input
    MouseButton = 2,  // press or release
    Key = 3,
    Wheel = 4,  // vertical wheel
    Tool = 5,   // a tool was switched on or off while recording
};

// Tool ids in `vk` of a Tool event.
inline constexpr std::uint32_t toolAutoClicker = 1;
inline constexpr std::uint32_t toolKeySpammer = 2;

struct UnifiedEvent {
    // A plain integer: files may hold kinds that no version of the program has written.
    std::int32_t kind = 0;
    double time = 0.0;   // seconds from the start of the recording
    std::int32_t x = 0;  // screen pixels; raw mouse units for MouseRaw
    std::int32_t y = 0;
    std::uint32_t flags = 0;  // MouseButton: the one button flag to inject
    std::uint32_t vk = 0;     // Key: virtual-key code; Tool: tool id
    std::uint8_t down = 0;    // Key: pressed; Tool: switched on
    std::int32_t wheel = 0;   // Wheel: signed delta as the system reports it

    bool is(EventKind k) const { return kind == static_cast<std::int32_t>(k); }
    bool operator==(const UnifiedEvent&) const = default;
};

}  // namespace ravelin
