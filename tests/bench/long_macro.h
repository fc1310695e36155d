// A macro of moves, with a click now and then.
#pragma once

#include <cstddef>

#include "input/event_list.h"

namespace ravelin::bench {

inline EventList longMacro(std::size_t count) {
    EventList events;
    for (std::size_t i = 0; i < count; ++i) {
        UnifiedEvent event;
        event.time = static_cast<double>(i) * 0.001;
        event.x = static_cast<std::int32_t>(i % 1920);
        if (i % 100 == 0) {
            event.kind = static_cast<std::int32_t>(EventKind::MouseButton);
            event.flags = i % 200 == 0 ? 2 : 4;
        }
        events.append(event);
    }
    return events;
}

}  // namespace ravelin::bench
