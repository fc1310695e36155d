#include "tests/support/engine_defaults.h"

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"

namespace ravelin::test {
namespace {

void lowerAllRequests() {
    for (auto* flag : {&requests.recToggle, &requests.startRecording, &requests.continueRecording,
                       &requests.undoContinuation, &requests.stopRecording, &requests.playToggle,
                       &requests.startPlayback, &requests.stopPlayback, &requests.clickerToggle,
                       &requests.clickerStart, &requests.clickerStop, &requests.keySpamToggle,
                       &requests.keySpamStart, &requests.keySpamStop})
        takeRequest(*flag);
}

void resetEngineState() {
    engine.running = true;
    engine.recording = engine.playing = engine.autoClicking = engine.keySpamming = false;
    engine.clickCount = engine.pressCount = 0;
    engine.stopToolsWithMacro = true;
    engine.panelHover = false;
    engine.counterFrequency = platform::counterFrequency();
    health.failures = health.refusedSends = health.hooksPutBack = 0;
    health.hooksMissing = false;
}

// A recording that begins and ends without a profile leaves nothing behind of those before it.
void resetRecorder() {
    profiles.clear();
    currentProfile = -1;
    raiseRequest(requests.startRecording);
    applyRecorderRequests();
    for (std::uint32_t button = 1; button <= 6; ++button)
        recordMouse({.kind = MouseEvent::Kind::release, .button = button, .point = {}});
    engine.recording = false;
    noteCursor({.kind = MouseEvent::Kind::move, .point = {}});
}

void resetToolOptions() {
    ToolSettings& s = toolSettings;
    resetToolSettings();
    for (auto* flag : {&s.tmv, &s.tclk, &s.tscr, &s.tkey})
        *flag = true;
    for (auto* flag : {&s.trel, &s.tloop, &s.holdAuto, &s.holdKeySpam})
        *flag = false;
    s.tspd = 1.0F;
    s.tloopMs = 500;
}

}  // namespace

void restoreEngineDefaults() {
    resetEngineState();
    lowerAllRequests();
    resetRecorder();
    resetHotkeys();
    hotkeys.enabled = hotkeys.lockOn = hotkeys.unlocked = true;
    onSessionLeft();
    capture.slot = CaptureSlot::none;
    capture.code = 0;
    capture.pickingLocation = false;
    resetToolOptions();
    profiles.assign(1, Profile{defaultProfileName, "", {}});
    currentProfile = 0;
}

}  // namespace ravelin::test
