#include "tests/windows/harness/engine_fixture.h"

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/input_thread.h"
#include "input/platform.h"
#include "input/raw_input_window_win32.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin::test {

namespace {

void resetRequests() {
    for (Requests::Flag* flag :
         {&requests.recToggle, &requests.startRecording, &requests.continueRecording,
          &requests.undoContinuation, &requests.stopRecording, &requests.playToggle,
          &requests.startPlayback, &requests.stopPlayback, &requests.clickerToggle,
          &requests.clickerStart, &requests.clickerStop, &requests.keySpamToggle,
          &requests.keySpamStart, &requests.keySpamStop}) {
        *flag = 0;
    }
}

void resetSettings() {
    resetHotkeys();
    hotkeys.enabled = true;
    hotkeys.lockOn = true;
    hotkeys.unlocked = true;
    capture.slot = CaptureSlot::none;
    capture.code = 0;
    capture.pickingLocation = false;
    toolSettings.locMode = 0;
    toolSettings.fixedX = 0;
    toolSettings.fixedY = 0;
    for (auto* option :
         {&toolSettings.tmv, &toolSettings.tclk, &toolSettings.tscr, &toolSettings.tkey}) {
        *option = true;
    }
    toolSettings.trel = false;
}

}  // namespace

InputThreadRun::InputThreadRun() : thread_(runInputThread) {
    eventually([] { return hiddenWindow() != nullptr; });
    // Answered by the message loop, which the thread enters once its hooks are in place.
    SendMessageW(hiddenWindow(), WM_NULL, 0, 0);
}

InputThreadRun::~InputThreadRun() {
    postQuitToInputThread();
    thread_.join();
}

HWND InputThreadRun::hiddenWindow() {
    return FindWindowExW(HWND_MESSAGE, nullptr, rawInputWindowClass, nullptr);
}

void EngineTest::SetUp() {
    ASSERT_TRUE(platform::createEvents());
    engine.running = true;
    engine.recording = false;
    engine.counterFrequency = platform::counterFrequency();
    resetRequests();
    resetSettings();
    onSessionLeft();
    profiles = {Profile{.name = defaultProfileName, .settingsLine = {}, .events = {}}};
    currentProfile = 0;
}

void EngineTest::TearDown() {
    engine.recording = false;
    profiles.clear();
    currentProfile = -1;
    platform::closeEvents();
}

}  // namespace ravelin::test
