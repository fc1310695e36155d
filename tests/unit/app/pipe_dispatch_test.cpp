#include "app/pipe_dispatch.h"

#include <vector>

#include "tests/support/engine_test.h"

namespace ravelin {
namespace {

using namespace std::string_view_literals;
using test::desktop;

class PipeDispatch : public test::EngineTest {
  protected:
    static bool commandSignalled() { return desktop.isSignalled(platform::Event::command); }
};

TEST_F(PipeDispatch, StartsAndStopsAreRaisedBeforeTheCommandEventIsSet) {
    const std::pair<const char*, Requests::Flag*> rows[] = {
        {"startSpammer|", &requests.clickerStart},
        {"stopSpammer|", &requests.clickerStop},
        {"startKeySpam|", &requests.keySpamStart},
        {"stopKeySpam|anything", &requests.keySpamStop}};
    for (const auto& [message, flag] : rows) {
        int seen = -1;
        desktop.onCommand = [&seen, flag = flag] { seen = flag->exchange(0); };
        dispatchPipeMessage(message);
        EXPECT_EQ(seen, 1) << message;
    }
}

TEST_F(PipeDispatch, SettingsReachTheParsers) {
    dispatchPipeMessage("updateSpammer|1,2,3,4,1,1,0,7,1");
    EXPECT_EQ(toolSettings.sh.load(), 1);
    EXPECT_EQ(toolSettings.locMode.load(), 1);
    dispatchPipeMessage("updateKeySpam|0,0,2,50,0,3");
    EXPECT_EQ(toolSettings.kss.load(), 2);
    EXPECT_EQ(toolSettings.ksRptTimes.load(), 3);
}

TEST_F(PipeDispatch, AConversionErrorIsDroppedAndKeepsTheFieldsBefore) {
    dispatchPipeMessage("updateSpammer|1,2,x,4,0,0,1,10,0");
    EXPECT_EQ(toolSettings.sm.load(), 2);
    EXPECT_EQ(toolSettings.ss.load(), 0);
    dispatchPipeMessage("updateKeySpam|99999999999,0,0,0,0,0");
    EXPECT_EQ(toolSettings.ksh.load(), 0);
    dispatchPipeMessage("updateSpammer|5,0,0,4,0,0,1,10,0");
    EXPECT_EQ(toolSettings.sh.load(), 5);
}

TEST_F(PipeDispatch, OnlyTheDigitOneTurnsTheHoverOn) {
    dispatchPipeMessage("panelHover|1");
    EXPECT_TRUE(engine.panelHover.load());
    dispatchPipeMessage("panelHover|yes");
    EXPECT_FALSE(engine.panelHover.load());
    engine.panelHover.exchange(true);
    dispatchPipeMessage("panelHover|11");
    EXPECT_FALSE(engine.panelHover.load());
    engine.panelHover.exchange(true);
    dispatchPipeMessage("panelHover|");
    EXPECT_FALSE(engine.panelHover.load());
}

TEST_F(PipeDispatch, OnlyTheDigitOneTurnsChordModeOnAndTheProfileLearnsOfIt) {
    addDefaultProfile();
    dispatchPipeMessage("setKeySpamChordMode|1");
    EXPECT_TRUE(keySpamTargets.chord.load());
    EXPECT_EQ(lockedCurrentProfile()->settingsLine, captureToolSettings());
    dispatchPipeMessage("setKeySpamChordMode|true");
    EXPECT_FALSE(keySpamTargets.chord.load());
}

TEST_F(PipeDispatch, ATargetIsRemovedByItsIndexAndNothingByAWord) {
    keySpamTargets.keys[1].exchange(65);
    keySpamTargets.count.exchange(2);
    dispatchPipeMessage("removeKeySpamTarget|first");
    dispatchPipeMessage("removeKeySpamTarget|");
    EXPECT_EQ(keySpamTargets.count.load(), 2);
    dispatchPipeMessage("removeKeySpamTarget|0");
    EXPECT_EQ(keySpamTargets.count.load(), 1);
    EXPECT_EQ(keySpamTargets.keys[0].load(), 65U);
}

TEST_F(PipeDispatch, TheFiveSlotsAreArmedAndTheCommandEventIsSet) {
    const std::pair<std::string, CaptureSlot> rows[] = {
        {"rec", CaptureSlot::rec},
        {"play", CaptureSlot::play},
        {"auto", CaptureSlot::autoClicker},
        {"keyspamhotkey", CaptureSlot::keySpamHotkey},
        {"keyspamtarget", CaptureSlot::keySpamTarget}};
    for (const auto& [name, slot] : rows) {
        test::resetEngine();
        dispatchPipeMessage("reassignKey|" + name);
        EXPECT_EQ(capture.slot.load(), slot) << name;
        EXPECT_TRUE(commandSignalled()) << name;
    }
}

TEST_F(PipeDispatch, AnyOtherSlotOnlySetsTheCommandEvent) {
    for (const std::string name : {"unlock", "Rec", "", "1"}) {
        test::resetEngine();
        capture.slot.exchange(CaptureSlot::play);
        dispatchPipeMessage("reassignKey|" + name);
        EXPECT_EQ(capture.slot.load(), CaptureSlot::play) << name;
        EXPECT_TRUE(commandSignalled()) << name;
    }
}

TEST_F(PipeDispatch, WhatIsNoMessageOfTheTableDoesNothing) {
    const std::string_view messages[] = {
        "startSpammer",  "StartSpammer|", " startSpammer|",   "|", "",
        "clearProfile|", "resetHotkeys|", "startSpammer\0|"sv};
    for (const auto message : messages) {
        dispatchPipeMessage(message);
        EXPECT_FALSE(commandSignalled()) << message;
        EXPECT_EQ(requests.clickerStart.load(), 0) << message;
    }
}

}  // namespace
}  // namespace ravelin
