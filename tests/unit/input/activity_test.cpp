#include "input/activity.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "input/capture.h"
#include "input/key_spammer.h"
#include "input/status.h"
#include "tests/support/engine_test.h"
#include "tests/support/macro_builder.h"

namespace ravelin::test {
namespace {

class Activity : public EngineTest {
  protected:
    static std::int64_t changes(bool panelsEnded = false) {
        return nlohmann::json::parse(getActivity(panelsEnded)).at("changes").get<std::int64_t>();
    }
};

TEST_F(Activity, StandsStillWhileNothingChanges) {
    const auto before = changes();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(changes(), before);
}

// Each of them makes the status read otherwise.
TEST_F(Activity, MovesWithEverythingThatTheStatusTells) {
    struct Change {
        const char* name;
        void (*make)();
    };
    static constexpr Change all[] = {
        {"recording", [] { engine.recording = true; }},
        {"event", [] { macro().append(keyEvent(0, 65, true)); }},
        {"no recording", [] { engine.recording = false; }},
        {"playing", [] { engine.playing = true; }},
        {"clicking", [] { engine.autoClicking = true; }},
        {"spamming", [] { engine.keySpamming = true; }},
        {"record key", [] { hotkeys.rec = 1; }},
        {"play key", [] { hotkeys.play = 1; }},
        {"clicker key", [] { hotkeys.autoClicker = 1; }},
        {"key spammer key", [] { hotkeys.keySpam = 1; }},
        {"unlock key", [] { hotkeys.unlock = 2; }},
        {"lock off", [] { hotkeys.lockOn = false; }},
        {"locked", [] { hotkeys.unlocked = false; }},
        {"target", [] { appendKeySpamTarget(66); }},
        {"other target", [] { keySpamTargets.keys[1] = 67; }},
        {"chord", [] { setKeySpamChordMode("1"); }},
        {"slot", [] { reassignKey("rec"); }},
        {"hover", [] { engine.panelHover = true; }},
    };
    desktop.keyNames = {{1, "One"}, {2, "Two"}, {65, "A"}, {66, "B"}, {67, "C"}};
    for (const Change& change : all) {
        const auto before = changes();
        const auto status = getTrackerStatus({});
        change.make();
        EXPECT_NE(getTrackerStatus({}), status) << change.name;
        EXPECT_EQ(changes(), before + 1) << change.name;
        EXPECT_EQ(changes(), before + 1) << change.name;
    }
}

TEST_F(Activity, MovesWithTheProfileAndTheLocationPicker) {
    auto before = changes();
    profiles.push_back(Profile{"other", "", {}});
    EXPECT_EQ(changes(), ++before);
    currentProfile = 1;
    EXPECT_EQ(changes(), ++before);
    pickLocation();
    EXPECT_EQ(changes(), ++before);
}

TEST_F(Activity, MovesAsLongAsAPanelThatHasEndedIsNotReported) {
    const auto before = changes();
    EXPECT_EQ(changes(true), before + 1);
    EXPECT_EQ(changes(true), before + 2);
    EXPECT_EQ(changes(false), before + 3);
    EXPECT_EQ(changes(false), before + 3);
}

TEST_F(Activity, TellsTheRoundsOfTheTools) {
    engine.clickCount = 12;
    engine.pressCount = 34;
    const auto activity = nlohmann::json::parse(getActivity(false));
    EXPECT_EQ(activity.at("clicks"), 12);
    EXPECT_EQ(activity.at("presses"), 34);
}

}  // namespace
}  // namespace ravelin::test
