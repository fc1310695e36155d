#include "input/auto_clicker.h"

#include <gmock/gmock.h>

#include "input/capture.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class AutoClicker : public EngineTest {
  protected:
    AutoClicker() { passOnEverySignal(); }

    static std::vector<std::int64_t> timesOf(const std::string& text) {
        std::vector<double> times;
        for (const Sent& sent : desktop.log)
            if (sent.text == text) times.push_back(sent.at);
        return milliseconds(times);
    }
};

TEST_F(AutoClicker, SendsNothingUntilItIsStarted) {
    quitAt(3600);
    runAutoClicker();
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(AutoClicker, ClicksAtOnceAndThenOnceAnInterval) {
    toolSettings.sms = 20;
    requestAt(1.0, requests.clickerStart);
    quitAt(1.05);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(),
              (Texts{"left down", "left up", "left down", "left up", "left down", "left up"}));
    EXPECT_THAT(milliseconds(desktop.times()), ElementsAre(1000, 1000, 1020, 1020, 1040, 1040));
}

TEST_F(AutoClicker, ClicksTwoHundredTimesASecondByDefault) {
    requestAt(0, requests.clickerStart);
    quitAt(1.0);
    runAutoClicker();
    EXPECT_EQ(timesOf("left down").size(), 200U);
    EXPECT_EQ(timesOf("left up").size(), 200U);
}

TEST_F(AutoClicker, WaitsItsIntervalAfterARoundHasFinished) {
    toolSettings.sms = 100;
    toolSettings.stype = 1;  // a round of 15 ms
    requestAt(0, requests.clickerStart);
    quitAt(0.34);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 15, 115, 130, 230, 245));
}

TEST_F(AutoClicker, ClicksThePointThatWasPickedOnAScaledScreen) {
    desktop.scale = 1.5;  // the hooks tell physical pixels, the process sees fewer
    pickLocation();
    feed("left↓@1500,900 left↑@1500,900");
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 1;
    requestAt(0, requests.clickerStart);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{"move 1500,900", "left down", "left up"}));
}

TEST_F(AutoClicker, DoesNotMakeUpForLateness) {
    toolSettings.sms = 10;
    requestAt(0, requests.clickerStart);
    // The first press takes a second to be taken.
    desktop.onSend = [](const Sent& sent) {
        if (sent.at < 0.5 && sent.text == "left down") desktop.advance(1.0);
    };
    quitAt(1.025);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 1010, 1020));
}

TEST_F(AutoClicker, SpacesADoubleClickByFifteenMillisecondsToTheTick) {
    toolSettings.stype = 1;
    toolSettings.ss = 1;
    requestAt(0.5, requests.clickerStart);
    quitAt(1.0);
    runAutoClicker();
    ASSERT_EQ(desktop.texts(), (Texts{"left down", "left up", "left down", "left up"}));
    const double gap = desktop.log[2].at - desktop.log[1].at;
    EXPECT_GE(gap, 0.015);
    EXPECT_LT(gap, 0.015'01);
}

TEST_F(AutoClicker, SleepsThroughMostOfADoubleClickInsteadOfSpinning) {
    toolSettings.stype = 1;
    toolSettings.ss = 1;
    // The clock stands still while it is slept, so only reading it brings the second click about.
    engine.counterFrequency = 1000;  // 15 ms are 15 counts, over in no time
    requestAt(0, requests.clickerStart);
    quitAt(0.5);
    runAutoClicker();
    EXPECT_THAT(milliseconds(desktop.times()), ElementsAre(0, 0, 13, 13));
}

TEST_F(AutoClicker, CountsADoubleClickOnce) {
    toolSettings.stype = 1;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 3;
    requestAt(0, requests.clickerStart);
    desktop.at(60, [] { EXPECT_EQ(timesOf("left down").size(), 6U); });
    runAutoClicker();
    EXPECT_EQ(timesOf("left up").size(), 6U);
}

TEST_F(AutoClicker, StopsByItselfAfterItsCountWithoutARelease) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 3;
    toolSettings.sms = 50;
    requestAt(1, requests.clickerStart);
    desktop.at(1.149, [] { EXPECT_TRUE(engine.autoClicking.load()); });
    desktop.at(1.151, [] {
        EXPECT_FALSE(engine.autoClicking.load());
        EXPECT_EQ(engine.clickCount.load(), 0);
    });
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(1000, 1050, 1100));
    EXPECT_EQ(desktop.log.size(), 6U);
}

TEST_F(AutoClicker, CountsAnewAfterEveryStart) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 3;
    requestAt(1, requests.clickerStart);
    requestAt(2, requests.clickerStart);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(1000, 1005, 1010, 2000, 2005, 2010));
}

TEST_F(AutoClicker, StopsBeforeTheFirstClickWithACountOfZero) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 0;
    requestAt(1, requests.clickerStart);
    runAutoClicker();
    EXPECT_THAT(desktop.log, IsEmpty());
    EXPECT_FALSE(engine.autoClicking.load());
}

TEST_F(AutoClicker, StopsBeforeTheFirstClickWithANegativeCount) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = -1;
    requestAt(1, requests.clickerStart);
    runAutoClicker();
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(AutoClicker, HeedsTheCountInNoOtherRepeatMode) {
    toolSettings.rptMode = 2;
    toolSettings.rptTimes = 1;
    requestAt(0, requests.clickerStart);
    quitAt(0.012);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 5, 10));
}

TEST_F(AutoClicker, ReadsTheCountLimitAgainOnEveryRound) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 1000;
    toolSettings.sms = 10;
    requestAt(0, requests.clickerStart);
    desktop.at(0.035, [] { toolSettings.rptTimes = 2; });
    runAutoClicker();
    EXPECT_EQ(timesOf("left down").size(), 4U);
}

struct Button {
    std::int32_t sbtn;
    std::string press;
    std::string release;
};

class AutoClickerButton : public AutoClicker, public testing::WithParamInterface<Button> {};

TEST_P(AutoClickerButton, IsPressedAndReleased) {
    toolSettings.sbtn = GetParam().sbtn;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 1;
    requestAt(0, requests.clickerStart);
    desktop.at(0.001, [] { EXPECT_EQ(engine.clickCount.load(), 1); });
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{GetParam().press, GetParam().release}));
}

INSTANTIATE_TEST_SUITE_P(Table, AutoClickerButton,
                         testing::Values(Button{0, "left down", "left up"},
                                         Button{1, "right down", "right up"},
                                         Button{2, "middle down", "middle up"},
                                         Button{3, "no button", "no button"},
                                         Button{-1, "no button", "no button"}));

TEST_F(AutoClicker, ReleasesTheButtonItPressedWhenTheSettingChangesInBetween) {
    desktop.onSend = [](const Sent& sent) {
        if (sent.text == "left down") toolSettings.sbtn = 1;
    };
    requestAt(0, requests.clickerStart);
    quitAt(0.006);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{"left down", "left up", "right down", "right up"}));
}

TEST_F(AutoClicker, MovesToTheFixedPointOnceARound) {
    toolSettings.locMode = 1;
    toolSettings.fixedX = 300;
    toolSettings.fixedY = 200;
    toolSettings.stype = 1;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 1;
    requestAt(0, requests.clickerStart);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(),
              (Texts{"move 300,200", "left down", "left up", "left down", "left up"}));
}

TEST_F(AutoClicker, ClicksWhereTheCursorIsInAnyOtherLocationMode) {
    toolSettings.locMode = 2;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 1;
    requestAt(0, requests.clickerStart);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{"left down", "left up"}));
}

TEST_F(AutoClicker, ClicksOnceMoreAtOnceWhenItIsWoken) {
    toolSettings.ss = 10;
    requestAt(0, requests.clickerStart);
    desktop.at(3, [] { platform::signal(Event::clickerWake); });
    quitAt(13.5);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 3000, 13005));
}

TEST_F(AutoClicker, TakesANewIntervalAfterTheCurrentWait) {
    toolSettings.ss = 1;
    toolSettings.sms = 0;
    requestAt(0, requests.clickerStart);
    desktop.at(0.5, [] { updateSpammer("0,0,0,100,0,0,1,10,0"); });
    quitAt(1.25);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 1000, 1100, 1200));
}

TEST_F(AutoClicker, KeepsIntervalsOfManyHours) {
    desktop.endOfTime = 1e9;
    toolSettings.sh = 24;
    toolSettings.sm = 30;
    toolSettings.sms = 0;
    requestAt(0, requests.clickerStart);
    quitAt(88200 * 2 + 1);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 88'200'000, 176'400'000));
}

TEST_F(AutoClicker, HoldsAnIntervalBeyondTheLongestWait) {
    desktop.endOfTime = 1e9;
    toolSettings.sh = 2'000'000'000;
    requestAt(0, requests.clickerStart);
    quitAt(4'294'968);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0, 4'294'967'294));
}

TEST_F(AutoClicker, ReleasesAllThreeButtonsWhenItIsStopped) {
    toolSettings.ss = 1;
    requestAt(0, requests.clickerStart);
    requestAt(0.5, requests.clickerStop);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{"left down", "left up", "left up", "right up", "middle up"}));
    EXPECT_FALSE(engine.autoClicking.load());
}

TEST_F(AutoClicker, GoesIdleWithinTheWaitThatAStopCutsShort) {
    toolSettings.sh = 1;
    requestAt(0, requests.clickerStart);
    requestAt(0.5, requests.clickerStop);
    desktop.at(0.6, [] { EXPECT_EQ(engine.clickCount.load(), 0); });
    runAutoClicker();
}

TEST_F(AutoClicker, SendsNoReleaseOnAStopWhileItIsIdle) {
    requestAt(0, requests.clickerStop);
    runAutoClicker();
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(AutoClicker, IgnoresAStartWhileItRuns) {
    toolSettings.ss = 1;
    requestAt(0, requests.clickerStart);
    requestAt(0.5, requests.clickerStart);
    quitAt(0.9);
    runAutoClicker();
    EXPECT_THAT(timesOf("left down"), ElementsAre(0));
}

TEST_F(AutoClicker, IsToggledOnAndOff) {
    toolSettings.ss = 1;
    requestAt(0, requests.clickerToggle);
    requestAt(0.5, requests.clickerToggle);
    runAutoClicker();
    EXPECT_EQ(desktop.texts(), (Texts{"left down", "left up", "left up", "right up", "middle up"}));
}

TEST_F(AutoClicker, EndsAtOnceAtQuit) {
    toolSettings.sh = 1;
    requestAt(0, requests.clickerStart);
    quitAt(0.25);
    runAutoClicker();
    EXPECT_NEAR(desktop.now(), 0.25, 1e-4);
}

}  // namespace
}  // namespace ravelin::test
