#include "input/recorder.h"

#include <array>
#include <optional>
#include <utility>

#include "input/engine_state.h"
#include "input/recording.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"
#include "input/unified_event.h"

namespace ravelin {
namespace {

// Of the input thread alone.
platform::Point lastSeen;
// By button: its last press landed on one of the program's own windows.
std::array<bool, 7> pressedOwnWindow{};

UnifiedEvent eventOf(EventKind kind) {
    UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(kind);
    return event;
}

UnifiedEvent eventAt(EventKind kind, platform::Point point) {
    UnifiedEvent event = eventOf(kind);
    event.x = point.x;
    event.y = point.y;
    return event;
}

void recordMove(const MouseEvent& event) {
    if (!toolSettings.tmv.load()) return;
    const bool moved = event.point != lastSeen;
    lastSeen = event.point;
    // With relative motion the moves come from raw input.
    if (moved && !toolSettings.trel.load())
        appendRecorded(eventAt(EventKind::MouseMove, event.point));
}

void recordWheel(const MouseEvent& event) {
    if (!toolSettings.tscr.load()) return;
    UnifiedEvent recorded = eventOf(EventKind::Wheel);
    recorded.wheel = event.wheel;
    appendRecorded(recorded);
}

// A press is the program's own by the window under it; a release goes with its press, wherever the
// cursor is by then.
bool isOwn(const MouseEvent& event) {
    auto& own = pressedOwnWindow[event.button % pressedOwnWindow.size()];
    if (event.kind == MouseEvent::Kind::press) return own = platform::isOwnWindowAt(event.point);
    return std::exchange(own, false);
}

// The flag that injects the event again. Side buttons have no release here, and a press does not
// tell which of the two it was.
std::optional<std::uint32_t> injectedFlag(std::uint32_t button, bool press) {
    switch (button) {
        case 1:
            return press ? mouse_flag::leftDown : mouse_flag::leftUp;
        case 2:
            return press ? mouse_flag::rightDown : mouse_flag::rightUp;
        case 4:
            return press ? mouse_flag::middleDown : mouse_flag::middleUp;
        default:
            if (press) return mouse_flag::sideDown;
            return std::nullopt;
    }
}

void recordButton(const MouseEvent& event) {
    if (isOwn(event) || !toolSettings.tclk.load()) return;
    const auto flag = injectedFlag(event.button, event.kind == MouseEvent::Kind::press);
    if (!flag) return;
    UnifiedEvent recorded = eventAt(EventKind::MouseButton, event.point);
    recorded.flags = *flag;
    appendRecorded(recorded);
}

}  // namespace

void recordKey(const KeyboardEvent& event) {
    if (!engine.recording.load() || !toolSettings.tkey.load()) return;
    UnifiedEvent recorded = eventOf(EventKind::Key);
    recorded.vk = event.vk;
    recorded.down = event.down ? 1 : 0;
    appendRecorded(recorded);
}

void recordMouse(const MouseEvent& event) {
    if (!engine.recording.load()) {
        noteCursor(event);
        return;
    }
    switch (event.kind) {
        case MouseEvent::Kind::move:
            recordMove(event);
            break;
        case MouseEvent::Kind::wheel:
            recordWheel(event);
            break;
        case MouseEvent::Kind::press:
        case MouseEvent::Kind::release:
            recordButton(event);
            break;
        case MouseEvent::Kind::other:
            break;
    }
}

void recordRawMotion(std::int32_t dx, std::int32_t dy) {
    const ToolSettings& s = toolSettings;
    if (!engine.recording.load() || !s.tmv.load() || !s.trel.load()) return;
    if (dx != 0 || dy != 0) appendRecorded(eventAt(EventKind::MouseRaw, {dx, dy}));
}

void noteCursor(const MouseEvent& event) {
    if (event.kind == MouseEvent::Kind::move) lastSeen = event.point;
}

void recordTool(std::uint32_t tool, bool on) {
    if (!engine.recording.load()) return;
    UnifiedEvent recorded = eventOf(EventKind::Tool);
    recorded.vk = tool;
    recorded.down = on ? 1 : 0;
    appendRecorded(recorded);
}

}  // namespace ravelin
