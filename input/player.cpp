#include "input/player.h"

#include <algorithm>
#include <cmath>

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/playback_gate.h"
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

void playOnce() {
    const auto run = playbackGate.currentRun();
    const EventList macro = currentMacro();
    if (macro.empty()) {
        playbackGate.finish(run);
        return;
    }
    PlaybackPass pass(macro, run);
    const bool finished = pass.play();
    if (finished && toolSettings.tloop.load()) {
        platform::waitForEventOrQuit(Event::playerWake, loopPauseMs());
        return;
    }
    if (finished) {
        playbackGate.finish(run);
    } else if (!engine.running.load() && playbackGate.currentRun() == run) {
        pass.releaseHeldButtons();
    }
    // A stop has raised them already. Once more, and the tools that a new run has started by now
    // would stop as well.
    if (engine.stopToolsWithMacro.load() && !engine.playing.load()) {
        raiseToolStops();
        platform::signal(Event::command);
    }
}

void stopPlayback() {
    if (playbackGate.stop() && engine.stopToolsWithMacro.load()) raiseToolStops();
}

}  // namespace

void runPlayer() {
    platform::enterWorkerThread();
    while (engine.running.load()) {
        if (!engine.playing.load()) {
            platform::waitForEventOrQuit(Event::playerWake, platform::forever);
        } else if (!runFenced(playOnce)) {
            // Tried again it would fail again, and what it pressed would stay down.
            stopPlayback();
            platform::signal(Event::command);
        }
    }
}

void applyPlayerRequests() {
    if (takeRequest(requests.playToggle) && !engine.recording.load()) {
        if (engine.playing.load())
            stopPlayback();
        else
            playbackGate.start();
        platform::signal(Event::playerWake);
    }
    if (takeRequest(requests.startPlayback) && !engine.recording.load() && playbackGate.start())
        platform::signal(Event::playerWake);
    if (takeRequest(requests.stopPlayback) && !engine.recording.load() && engine.playing.load()) {
        stopPlayback();
        platform::signal(Event::playerWake);
    }
}

}  // namespace ravelin
