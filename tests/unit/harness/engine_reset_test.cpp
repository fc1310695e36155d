// What one test leaves behind is gone for the next.
#include "tests/support/engine_reset.h"

#include <gmock/gmock.h>

#include "input/recorder.h"
#include "input/status.h"
#include "input/synthetic_input.h"
#include "persistence/session_settings.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"
#include "tests/support/macro_builder.h"

namespace ravelin::test {
namespace {

// The whole state as texts.
std::vector<std::string> everything() {
    std::vector<std::string> texts = {sessionSettingsLine(), getTrackerStatus({}), getProfiles(),
                                      captureToolSettings()};
    for (const Profile& profile : profiles)
        texts.push_back(profile.settingsLine + '/' + std::to_string(profile.events.size()));
    for (const auto* flag :
         {&engine.running, &engine.recording, &engine.playing, &engine.autoClicking,
          &engine.keySpamming, &engine.stopToolsWithMacro, &engine.panelHover, &hotkeys.enabled,
          &hotkeys.lockOn, &hotkeys.unlocked, &capture.pickingLocation})
        texts.emplace_back(flag->load() ? "1" : "0");
    for (const auto* count : {&engine.clickCount, &engine.pressCount})
        texts.push_back(std::to_string(count->load()));
    texts.push_back(std::to_string(engine.counterFrequency.load()));
    texts.push_back(std::to_string(capture.code.load()));
    texts.push_back(std::to_string(desktop.now()) + '/' + std::to_string(desktop.log.size()));
    return texts;
}

void changeEverything() {
    desktop.advance(3);
    engine.running = engine.stopToolsWithMacro = false;
    engine.playing = engine.autoClicking = engine.keySpamming = engine.panelHover = true;
    engine.clickCount = engine.pressCount = 4;
    engine.counterFrequency = 1;
    hotkeys.rec = hotkeys.play = hotkeys.autoClicker = hotkeys.keySpam = hotkeys.unlock = 65;
    hotkeys.enabled = hotkeys.lockOn = hotkeys.unlocked = false;
    capture.slot = CaptureSlot::rec;
    capture.code = 66;
    capture.pickingLocation = true;
    applySessionSettings(
        "1,1,1,1,1,1,2,1,1,1,1,0,0,0,0,1,2,1,1,1,1,0,1,1,1,1,1,2,1,1,1,1|2,1,1,1,1");
    profiles = {{"Other", "1", {wheelEvent(0, 1)}}, {"Another", "", {}}};
    currentProfile = 1;
    sendKey(65, true);
}

TEST(EngineReset, RestoresEverything) {
    resetEngine();
    const auto fresh = everything();
    changeEverything();
    const auto changed = everything();
    ASSERT_EQ(changed[0],
              "1,1,1,1,1,1,2,1,1,1,1,0,0,0,0,1,2,1,1,1,1,0,1,1,1,1,1,2,1,1,1,1|2,1,1,1,1");
    resetEngine();
    EXPECT_EQ(everything(), fresh);
    EXPECT_EQ(fresh[0],
              "0,0,0,5,0,0,1,10,0,0,0,1,1,1,1,0,1,0,500,119,118,0,117,0,0,0,5,1,10,120,32,32,0,"
              "0,0,121");
}

TEST(EngineReset, LowersEveryRequest) {
    resetEngine();
    Requests::Flag* const flags[] = {
        &requests.recToggle,     &requests.startRecording,   &requests.continueRecording,
        &requests.stopRecording, &requests.undoContinuation, &requests.playToggle,
        &requests.startPlayback, &requests.stopPlayback,     &requests.clickerToggle,
        &requests.clickerStart,  &requests.clickerStop,      &requests.keySpamToggle,
        &requests.keySpamStart,  &requests.keySpamStop,
    };
    for (auto* flag : flags)
        *flag = 1;
    resetEngine();
    for (auto* flag : flags)
        EXPECT_EQ(flag->load(), 0);
}

TEST(EngineReset, ForgetsWhatIsHeldDown) {
    resetEngine();
    EXPECT_EQ(feed("F6↓ middle↓ A↓"), "F6↓=hidden:clickerToggle middle↓=seen A↓=seen");
    resetEngine();
    EXPECT_EQ(feed("F6↓"), "F6↓=hidden:clickerToggle") << "a first press again";
}

TEST(EngineReset, ForgetsTheContinuationAndWhereThingsWereSeen) {
    resetEngine();
    desktop.onCommand = runCommandPass;
    desktop.isOwnWindow = [](platform::Point) { return true; };
    postRequest(requests.continueRecording);
    feed("10 A↓ left↓@5,5 move@7,7");
    postRequest(requests.stopRecording);
    ASSERT_TRUE(canUndoContinuation());
    resetEngine();
    EXPECT_FALSE(canUndoContinuation());
    desktop.onCommand = runCommandPass;
    postRequest(requests.startRecording);
    // Neither the release of an own press nor a point that was seen.
    feed("10 left↑@5,5 move@7,7");
    EXPECT_EQ(profiles[0].events.size(), 2U);
}

}  // namespace
}  // namespace ravelin::test
