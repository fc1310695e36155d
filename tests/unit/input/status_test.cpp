#include "input/status.h"

#include <gmock/gmock.h>

#include "input/capture.h"
#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

using testing::HasSubstr;

class Status : public EngineTest {
  protected:
    Status() {
        desktop.keyNames = {{119, "F8"}, {118, "F7"},  {117, "F6"},
                            {120, "F9"}, {121, "F10"}, {32, "Leertaste"}};
    }
};

TEST_F(Status, TellsTheDefaultsByteForByte) {
    EXPECT_EQ(getTrackerStatus({}),
              R"({"state":"Idle","count":0,"restore":[],"hkRec":"F8","hkPlay":"F7","hkAuto":"F6",)"
              R"("hkKeySpam":"F9","hkUnlock":"F10","lockOn":true,"unlocked":true,)"
              R"("keySpamTargets":["Leertaste"],"keySpamChord":false,"ksCap":3,"reassigning":"",)"
              R"("panelHover":false,"autoClicking":false,"keySpamming":false,)"
              R"("canUndoContinue":false})");
}

TEST_F(Status, TellsEverythingThatCanChangeByteForByte) {
    engine.playing = engine.autoClicking = engine.keySpamming = engine.panelHover = true;
    macro() = {UnifiedEvent{}, UnifiedEvent{}};
    hotkeys.rec = 1;
    hotkeys.play = 192;
    hotkeys.autoClicker = 7;
    hotkeys.keySpam = 220;
    hotkeys.unlock = 6;
    hotkeys.lockOn = hotkeys.unlocked = false;
    desktop.keyNames[220] = "\\\"\x01";
    keySpamTargets.keys[1] = 32;
    keySpamTargets.keys[2] = 117;
    keySpamTargets.count = 3;
    keySpamTargets.chord = true;
    reassignKey("keyspamtarget");
    EXPECT_EQ(getTrackerStatus({"panel-keyspam", "panel-macro"}),
              R"({"state":"Playing","count":2,"restore":["panel-keyspam","panel-macro"],)"
              R"("hkRec":"Left Mouse","hkPlay":"`","hkAuto":"Key[7]","hkKeySpam":"\\\"\u0001",)"
              R"json("hkUnlock":"Mouse 5 (Side)","lockOn":false,"unlocked":false,)json"
              R"("keySpamTargets":["Leertaste","Leertaste","F6"],"keySpamChord":true,"ksCap":3,)"
              R"("reassigning":"keyspamtarget","panelHover":true,"autoClicking":true,)"
              R"("keySpamming":true,"canUndoContinue":false})");
}

TEST_F(Status, CallsItRecordingBeforePlaying) {
    engine.recording = engine.playing = true;
    EXPECT_THAT(getTrackerStatus({}), HasSubstr(R"("state":"Recording")"));
}

TEST_F(Status, HasNoTargetsInAnEmptyList) {
    keySpamTargets.count = 0;
    EXPECT_THAT(getTrackerStatus({}), HasSubstr(R"("keySpamTargets":[],)"));
}

TEST_F(Status, CountsNothingWithoutAProfile) {
    macro() = {UnifiedEvent{}};
    currentProfile = -1;
    EXPECT_THAT(getTrackerStatus({}), HasSubstr(R"("count":0,)"));
}

TEST_F(Status, CountsTheCurrentProfilesEvents) {
    profiles.push_back({"Other", "", {UnifiedEvent{}}});
    currentProfile = 1;
    EXPECT_THAT(getTrackerStatus({}), HasSubstr(R"("count":1,)"));
}

}  // namespace
}  // namespace ravelin::test
