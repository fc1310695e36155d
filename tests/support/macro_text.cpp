#include "tests/support/macro_text.h"

#include <cmath>

#include "tests/support/simulated_desktop.h"

namespace ravelin::test {
namespace {

std::string pointText(const UnifiedEvent& event) {
    return std::to_string(event.x) + ',' + std::to_string(event.y);
}

std::string textOf(const UnifiedEvent& event) {
    switch (static_cast<EventKind>(event.kind)) {
        case EventKind::MouseMove:
            return "move " + pointText(event);
        case EventKind::MouseRaw:
            return "raw " + pointText(event);
        case EventKind::MouseButton:
            return describe(platform::MouseInput{.flags = event.flags}) + ' ' + pointText(event);
        case EventKind::Key:
            return "key " + std::to_string(event.vk) + (event.down == 1 ? " down" : " up");
        case EventKind::Wheel:
            return "wheel " + std::to_string(event.wheel);
        case EventKind::Tool:
            return "tool " + std::to_string(event.vk) + (event.down == 1 ? " on" : " off");
    }
    return "kind " + std::to_string(event.kind);
}

}  // namespace

std::string textOf(const EventList& macro) {
    std::string text;
    for (const UnifiedEvent& event : macro) {
        if (!text.empty()) text.append(", ");
        text.append(std::to_string(std::llround(event.time * 1000)));
        text.append(":").append(textOf(event));
    }
    return text;
}

}  // namespace ravelin::test
