// A macro as a long recording leaves it: mostly mouse moves along a path, with clicks, keys and the
// wheel in between.
#pragma once

#include <cstdint>
#include <random>

#include "input/event_list.h"

namespace ravelin::test {

inline EventList generatedMacro(std::size_t count) {
    std::mt19937 random(42);
    const auto upTo = [&random](std::uint32_t n) {
        return static_cast<std::int32_t>(random() % n);
    };
    EventList events;
    double time = 0;
    std::int32_t x = 960;
    std::int32_t y = 540;
    while (events.size() < count) {
        time += 0.001 + upTo(14000) / 1e6;
        UnifiedEvent event;
        event.time = time;
        const auto chance = upTo(100);
        if (chance < 90) {
            x = (x + upTo(31) - 15 + 1920) % 1920;
            y = (y + upTo(21) - 10 + 1080) % 1080;
            event.x = x;
            event.y = y;
        } else if (chance < 94) {
            event.kind = static_cast<std::int32_t>(EventKind::MouseButton);
            event.x = x;
            event.y = y;
            event.flags = chance % 2 == 0 ? 2 : 4;
        } else if (chance < 99) {
            event.kind = static_cast<std::int32_t>(EventKind::Key);
            event.vk = static_cast<std::uint32_t>(65 + upTo(26));
            event.down = chance % 2 == 0 ? 1 : 0;
        } else {
            event.kind = static_cast<std::int32_t>(EventKind::Wheel);
            event.wheel = upTo(2) == 0 ? 120 : -120;
        }
        events.append(event);
    }
    return events;
}

}  // namespace ravelin::test
