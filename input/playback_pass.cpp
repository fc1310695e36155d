#include "input/playback_pass.h"

#include <algorithm>

#include "input/engine_state.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"

namespace ravelin {
namespace {

// The rest of a wait that is spun rather than slept: a sleep of 1 ms may take two.
constexpr double spinSeconds = 0.002;

bool goesOn() {
    return engine.playing.load() && engine.running.load();
}

void switchTool(std::uint32_t tool, bool on) {
    switch (tool) {
        case toolAutoClicker:
            postRequest(on ? requests.clickerStart : requests.clickerStop);
            break;
        case toolKeySpammer:
            postRequest(on ? requests.keySpamStart : requests.keySpamStop);
            break;
        default:  // a tool that this version does not know
            break;
    }
}

std::int32_t between(std::int32_t from, std::int32_t to, double fraction) {
    return static_cast<std::int32_t>(from + (static_cast<double>(to) - from) * fraction);
}

}  // namespace

PlaybackPass::PlaybackPass(const EventList& events) : events_(events) {}

void PlaybackPass::goToStart() {
    const auto first = std::find_if(events_.begin(), events_.end(), [](const UnifiedEvent& event) {
        return event.is(EventKind::MouseMove) || event.is(EventKind::MouseButton);
    });
    if (first == events_.end()) {
        base_ = platform::cursorPosition().value_or(platform::Point{});
        lastSent_ = {-1, -1};
        return;
    }
    moveMouseAbsolute(first->x, first->y);
    base_ = lastSent_ = {first->x, first->y};
}

double PlaybackPass::elapsed() const {
    return static_cast<double>(platform::counter() - start_) /
           static_cast<double>(engine.counterFrequency.load());
}

bool PlaybackPass::play() {
    goToStart();
    start_ = platform::counter();
    for (const UnifiedEvent& event : events_) {
        const double target = event.time / static_cast<double>(toolSettings.tspd.load());
        if (!waitFor(event, target)) return false;
        send(event);
        previousTarget_ = target;
    }
    return goesOn();
}

bool PlaybackPass::waitFor(const UnifiedEvent& event, double target) {
    const bool moves = event.is(EventKind::MouseMove) && target > previousTarget_;
    for (;;) {
        const double now = elapsed();
        if (!goesOn()) return false;
        // A speed of 0 makes targets infinite or no number at all: such a moment never comes, and
        // it is slept for, not spun for.
        if (now >= target) return true;
        if (moves) moveAlong(event, target, now);
        if (!(target - now <= spinSeconds)) platform::sleepMs(1);
    }
}

void PlaybackPass::moveAlong(const UnifiedEvent& event, double target, double now) {
    const double way = (now - previousTarget_) / (target - previousTarget_);
    const double fraction = way > 0.0 ? std::min(way, 1.0) : 0.0;
    const platform::Point point{between(base_.x, event.x, fraction),
                                between(base_.y, event.y, fraction)};
    if (point == lastSent_) return;
    moveMouseAbsolute(point.x, point.y);
    lastSent_ = point;
}

void PlaybackPass::send(const UnifiedEvent& event) {
    switch (static_cast<EventKind>(event.kind)) {
        case EventKind::MouseMove:
            moveMouseAbsolute(event.x, event.y);
            base_ = lastSent_ = {event.x, event.y};
            break;
        case EventKind::MouseRaw:
            moveMouseRelative(event.x, event.y);
            break;
        case EventKind::MouseButton:
            moveMouseAbsolute(event.x, event.y);
            sendMouseButton(event.flags);
            base_ = {event.x, event.y};
            break;
        case EventKind::Key:
            sendKey(event.vk, event.down == 1);
            break;
        case EventKind::Wheel:
            sendMouseButton(mouse_flag::wheel, static_cast<std::uint32_t>(event.wheel));
            break;
        case EventKind::Tool:
            switchTool(event.vk, event.down == 1);
            break;
    }
}

}  // namespace ravelin
