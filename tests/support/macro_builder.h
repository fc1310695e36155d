// Events of every kind in one line each.
#pragma once

#include "input/unified_event.h"

namespace ravelin::test {

inline UnifiedEvent eventOf(EventKind kind, double time) {
    UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(kind);
    event.time = time;
    return event;
}

inline UnifiedEvent placedEvent(EventKind kind, double time, std::int32_t x, std::int32_t y) {
    UnifiedEvent event = eventOf(kind, time);
    event.x = x;
    event.y = y;
    return event;
}

inline UnifiedEvent moveEvent(double time, std::int32_t x, std::int32_t y) {
    return placedEvent(EventKind::MouseMove, time, x, y);
}

inline UnifiedEvent rawEvent(double time, std::int32_t dx, std::int32_t dy) {
    return placedEvent(EventKind::MouseRaw, time, dx, dy);
}

inline UnifiedEvent buttonEvent(double time, std::uint32_t flags, std::int32_t x, std::int32_t y) {
    UnifiedEvent event = placedEvent(EventKind::MouseButton, time, x, y);
    event.flags = flags;
    return event;
}

inline UnifiedEvent keyEvent(double time, std::uint32_t vk, bool down) {
    UnifiedEvent event = eventOf(EventKind::Key, time);
    event.vk = vk;
    event.down = down ? 1 : 0;
    return event;
}

inline UnifiedEvent wheelEvent(double time, std::int32_t delta) {
    UnifiedEvent event = eventOf(EventKind::Wheel, time);
    event.wheel = delta;
    return event;
}

inline UnifiedEvent toolEvent(double time, std::uint32_t tool, bool on) {
    UnifiedEvent event = eventOf(EventKind::Tool, time);
    event.vk = tool;
    event.down = on ? 1 : 0;
    return event;
}

}  // namespace ravelin::test
