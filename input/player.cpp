#include "input/player.h"

#include <algorithm>
#include <cmath>

#include "input/engine_state.h"
#include "input/playback_pass.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"

namespace ravelin {
namespace {

using platform::Event;

EventList currentMacro() {
    const std::lock_guard lock(profileMutex);
    const Profile* profile = lockedCurrentProfile();
    return profile != nullptr ? profile->events : EventList();
}

std::uint32_t loopPauseMs() {
    const double pause = std::ceil(toolSettings.tloopMs.load() / 1000.0 * 1000.0);
    return waitMs(std::max(pause, 0.0));
}

void raiseToolStopsIfSet() {
    if (engine.stopToolsWithMacro.load()) raiseToolStops();
}

void playOnce() {
    const EventList macro = currentMacro();
    if (macro.empty()) {
        engine.playing.exchange(false);
        return;
    }
    const bool finished = PlaybackPass(macro).play();
    if (toolSettings.tloop.load() && engine.playing.load()) {
        platform::waitForEventOrQuit(Event::playerWake, loopPauseMs());
        return;
    }
    // A pass that was stopped found the flag off. By now it may be on again for the next one.
    if (finished) engine.playing.exchange(false);
    if (engine.stopToolsWithMacro.load()) {
        raiseToolStops();
        platform::signal(Event::command);
    }
}

// The middle button and keys that the macro holds at this moment stay down.
void endPlayback() {
    sendMouseButton(mouse_flag::leftUp);
    sendMouseButton(mouse_flag::rightUp);
    raiseToolStopsIfSet();
}

}  // namespace

void runPlayer() {
    while (engine.running.load()) {
        if (engine.playing.load())
            playOnce();
        else
            platform::waitForEventOrQuit(Event::playerWake, platform::forever);
    }
}

void applyPlayerRequests() {
    if (takeRequest(requests.playToggle) && !engine.recording.load()) {
        if (!flip(engine.playing)) endPlayback();
        platform::signal(Event::playerWake);
    }
    if (takeRequest(requests.startPlayback) && !engine.recording.load() &&
        !engine.playing.exchange(true))
        platform::signal(Event::playerWake);
    if (takeRequest(requests.stopPlayback) && !engine.recording.load() &&
        engine.playing.exchange(false)) {
        endPlayback();
        platform::signal(Event::playerWake);
    }
}

}  // namespace ravelin
