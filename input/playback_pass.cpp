#include "input/playback_pass.h"

#include <algorithm>
#include <utility>

#include "input/engine_state.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"

namespace ravelin {
namespace {

// The rest of a wait that is spun rather than slept: a sleep of 1 ms may take two.
constexpr double spinSeconds = 0.002;

// The request that a tool event raises; null for other events and for a tool that this version does
// not know.
Requests::Flag* requestOf(const UnifiedEvent& event) {
    if (!event.is(EventKind::Tool)) return nullptr;
    const bool on = event.down == 1;
    switch (event.vk) {
        case toolAutoClicker:
            return on ? &requests.clickerStart : &requests.clickerStop;
        case toolKeySpammer:
            return on ? &requests.keySpamStart : &requests.keySpamStop;
        default:
            return nullptr;
    }
}

std::int32_t between(std::int32_t from, std::int32_t to, double fraction) {
    return static_cast<std::int32_t>(from + (static_cast<double>(to) - from) * fraction);
}

}  // namespace

PlaybackPass::PlaybackPass(const EventList& events, PlaybackGate::Run run)
    : events_(events), run_(run) {}

bool PlaybackPass::goToStart() {
    const auto first = std::find_if(events_.begin(), events_.end(), [](const UnifiedEvent& event) {
        return event.is(EventKind::MouseMove) || event.is(EventKind::MouseButton);
    });
    if (first == events_.end()) {
        base_ = platform::cursorPosition().value_or(platform::Point{});
        lastSent_ = {-1, -1};
        return true;
    }
    base_ = lastSent_ = {first->x, first->y};
    return playbackGate.whileItGoesOn(run_, [&] { moveMouseAbsolute(first->x, first->y); });
}

double PlaybackPass::elapsed() const {
    return static_cast<double>(platform::counter() - start_) /
           static_cast<double>(engine.counterFrequency.load());
}

bool PlaybackPass::play() {
    if (!goToStart()) return false;
    start_ = platform::counter();
    for (const UnifiedEvent& event : events_) {
        const double target = event.time / static_cast<double>(toolSettings.tspd.load());
        if (!waitFor(event, target)) return false;
        if (!playbackGate.whileItGoesOn(run_, [&] { send(event); })) return false;
        if (requestOf(event) != nullptr) platform::signal(platform::Event::command);
        previousTarget_ = target;
    }
    return playbackGate.goesOn(run_);
}

bool PlaybackPass::waitFor(const UnifiedEvent& event, double target) {
    const bool moves = event.is(EventKind::MouseMove) && target > previousTarget_;
    for (;;) {
        const double now = elapsed();
        if (!playbackGate.goesOn(run_)) return false;
        // A speed of 0 makes targets infinite or no number at all: such a moment never comes, and
        // it is slept for, not spun for.
        if (now >= target) return true;
        if (moves && !moveAlong(event, target, now)) return false;
        if (!(target - now <= spinSeconds)) platform::sleepMs(1);
    }
}

bool PlaybackPass::moveAlong(const UnifiedEvent& event, double target, double now) {
    const double way = (now - previousTarget_) / (target - previousTarget_);
    const double fraction = way > 0.0 ? std::min(way, 1.0) : 0.0;
    const platform::Point point{between(base_.x, event.x, fraction),
                                between(base_.y, event.y, fraction)};
    if (point == lastSent_) return true;
    lastSent_ = point;
    return playbackGate.whileItGoesOn(run_, [&] { moveMouseAbsolute(point.x, point.y); });
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
            sendButton(event.flags);
            base_ = {event.x, event.y};
            break;
        case EventKind::Key:
            platform::adoptForegroundLayout();
            sendKey(event.vk, event.down == 1);
            break;
        case EventKind::Wheel:
            sendMouseButton(mouse_flag::wheel, static_cast<std::uint32_t>(event.wheel));
            break;
        case EventKind::Tool:
            if (auto* request = requestOf(event)) raiseRequest(*request);
            break;
    }
}

void PlaybackPass::sendButton(std::uint32_t flags) {
    sendMouseButton(flags);
    if (flags == mouse_flag::leftDown || flags == mouse_flag::leftUp)
        leftHeld_ = flags == mouse_flag::leftDown;
    if (flags == mouse_flag::rightDown || flags == mouse_flag::rightUp)
        rightHeld_ = flags == mouse_flag::rightDown;
}

void PlaybackPass::releaseHeldButtons() {
    if (std::exchange(leftHeld_, false)) sendMouseButton(mouse_flag::leftUp);
    if (std::exchange(rightHeld_, false)) sendMouseButton(mouse_flag::rightUp);
}

}  // namespace ravelin
