#include "input/auto_clicker.h"

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"

namespace ravelin {
namespace {

using platform::Event;

struct ButtonFlags {
    std::uint32_t press = 0;
    std::uint32_t release = 0;
};

ButtonFlags buttonFlags(std::int32_t sbtn) {
    switch (sbtn) {
        case 0:
            return {mouse_flag::leftDown, mouse_flag::leftUp};
        case 1:
            return {mouse_flag::rightDown, mouse_flag::rightUp};
        case 2:
            return {mouse_flag::middleDown, mouse_flag::middleUp};
        default:
            return {};
    }
}

// 15 ms to the counter tick: a sleep for the most of it, as long as a 1 ms timer keeps its word,
// and a spin for the rest.
void pauseInsideDoubleClick() {
    const auto pause = 0.015 * static_cast<double>(engine.counterFrequency.load());
    const auto target = platform::counter() + static_cast<std::int64_t>(pause);
    platform::sleepMs(13);
    while (platform::counter() < target) {
    }
}

void click(ButtonFlags flags) {
    sendMouseButton(flags.press);
    sendMouseButton(flags.release);
}

bool countReached() {
    return toolSettings.rptMode.load() == 0 &&
           engine.clickCount.load() >= toolSettings.rptTimes.load();
}

// Clicks once (or twice) if the clicker runs; returns how long to wait before the next round.
std::uint32_t clickRound() {
    const ToolSettings& s = toolSettings;
    if (!engine.autoClicking.load()) {
        engine.clickCount.exchange(0);
        return platform::forever;
    }
    if (countReached()) {
        engine.autoClicking.exchange(false);
        return 0;
    }
    if (s.locMode.load() == 1) moveMouseAbsolute(s.fixedX.load(), s.fixedY.load());
    // Read once a round, so that every press gets the release of the same button.
    const auto flags = buttonFlags(s.sbtn.load());
    click(flags);
    if (s.stype.load() == 1) {
        pauseInsideDoubleClick();
        click(flags);
    }
    engine.clickCount.fetch_add(1);
    return waitMs(intervalMs(s.sh.load(), s.sm.load(), s.ss.load(), s.sms.load()));
}

// A stop may land between a press and its release: no button stays down.
void releaseMouseButtons() {
    sendMouseButton(mouse_flag::leftUp);
    sendMouseButton(mouse_flag::rightUp);
    sendMouseButton(mouse_flag::middleUp);
}

}  // namespace

void runAutoClicker() {
    platform::enterWorkerThread();
    while (engine.running.load()) {
        std::uint32_t wait = pauseAfterFailureMs;
        runFenced([&wait] { wait = clickRound(); });
        platform::waitForEventOrQuit(Event::clickerWake, wait);
    }
}

void applyClickerRequests() {
    if (takeRequest(requests.clickerToggle)) {
        if (!flip(engine.autoClicking)) releaseMouseButtons();
        platform::signal(Event::clickerWake);
    }
    if (takeRequest(requests.clickerStart) && !engine.autoClicking.exchange(true))
        platform::signal(Event::clickerWake);
    if (takeRequest(requests.clickerStop) && engine.autoClicking.exchange(false)) {
        releaseMouseButtons();
        platform::signal(Event::clickerWake);
    }
}

}  // namespace ravelin
