// Playing in a loop, and the tools that a macro starts and stops.
#include <gmock/gmock.h>

#include "input/player.h"
#include "tests/support/engine_test.h"
#include "tests/support/macro_builder.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

class PlayerLoop : public EngineTest {
  protected:
    PlayerLoop() {
        passOnEverySignal();
        toolSettings.tloop = true;
    }
    static void playAt(double seconds) { requestAt(seconds, requests.playToggle); }
    static std::vector<std::int64_t> pressTimes() {
        std::vector<double> times;
        for (const Sent& sent : desktop.log)
            if (sent.text == "key 65 down") times.push_back(sent.at);
        return milliseconds(times);
    }
};

TEST_F(PlayerLoop, PausesBetweenPasses) {
    macro() = {keyEvent(0, 65, true), keyEvent(0.1, 65, false)};
    playAt(0);
    quitAt(1.5);
    runPlayer();
    EXPECT_THAT(pressTimes(), ElementsAre(0, 600, 1200));
}

TEST_F(PlayerLoop, PausesForAsLongAsIsSet) {
    for (const std::int32_t pause : {0, 1, 7, 1001, 60'000}) {
        resetEngine();
        passOnEverySignal();
        toolSettings.tloop = true;
        toolSettings.tloopMs = pause;
        macro() = {keyEvent(0, 65, true), keyEvent(0.1, 66, true)};
        playAt(0);
        quitAt(pause / 1000.0 + 0.15);
        runPlayer();
        EXPECT_THAT(pressTimes(), ElementsAre(0, 100 + pause));
    }
}

TEST_F(PlayerLoop, TakesANegativePauseForNone) {
    toolSettings.tloopMs = -1;
    macro() = {keyEvent(0, 65, true), keyEvent(0.1, 66, true)};
    playAt(0);
    quitAt(0.25);
    runPlayer();
    EXPECT_THAT(pressTimes(), ElementsAre(0, 100, 200));
}

TEST_F(PlayerLoop, EndsAtOnceWhenItIsStoppedInThePause) {
    toolSettings.tloopMs = 60'000;
    macro() = {keyEvent(0, 65, true)};
    playAt(0);
    playAt(10);
    desktop.at(10.001, [] { EXPECT_FALSE(engine.playing.load()); });
    runPlayer();
    EXPECT_THAT(pressTimes(), ElementsAre(0));
    EXPECT_LT(desktop.now(), 10.002);
}

TEST_F(PlayerLoop, IsCutShortByItsWake) {
    toolSettings.tloopMs = 60'000;
    macro() = {keyEvent(0, 65, true)};
    playAt(0);
    desktop.at(10, [] { platform::signal(Event::playerWake); });
    quitAt(20);
    runPlayer();
    EXPECT_THAT(pressTimes(), ElementsAre(0, 10'000));
}

TEST_F(PlayerLoop, EndsAtOnceAtQuit) {
    toolSettings.tloopMs = 60'000;
    macro() = {keyEvent(0, 65, true)};
    playAt(0);
    quitAt(10);
    runPlayer();
    EXPECT_LT(desktop.now(), 10.001);
}

TEST_F(PlayerLoop, PlaysAChangedMacroFromTheNextPassOn) {
    macro() = {keyEvent(0, 65, true), keyEvent(0.1, 66, true)};
    playAt(0);
    desktop.at(0.05, [] { macro() = {keyEvent(0, 67, true)}; });
    quitAt(0.65);
    runPlayer();
    EXPECT_EQ(desktop.texts(), (Texts{"key 65 down", "key 66 down", "key 67 down"}));
}

TEST_F(PlayerLoop, EndsWhenItsMacroWasEmptied) {
    macro() = {keyEvent(0, 65, true)};
    playAt(0);
    desktop.at(0.1, [] { macro() = {}; });
    desktop.at(1, [] { EXPECT_FALSE(engine.playing.load()); });
    runPlayer();
}

TEST_F(PlayerLoop, EndsAfterThePassInWhichItIsSwitchedOff) {
    macro() = {keyEvent(0, 65, true), keyEvent(0.1, 66, true)};
    playAt(0);
    desktop.at(0.05, [] { toolSettings.tloop = false; });
    desktop.at(0.2, [] { EXPECT_FALSE(engine.playing.load()); });
    runPlayer();
    EXPECT_THAT(pressTimes(), ElementsAre(0));
}

TEST_F(PlayerLoop, LeavesTheToolsRunningBetweenPasses) {
    macro() = {toolEvent(0, toolAutoClicker, true)};
    playAt(0);
    desktop.at(0.2, [] { EXPECT_TRUE(engine.autoClicking.load()); });
    quitAt(0.3);
    runPlayer();
}

class MacroTools : public EngineTest {
  protected:
    MacroTools() { passOnEverySignal(); }
};

TEST_F(MacroTools, AreSwitchedAtTheRecordedMoments) {
    macro() = {toolEvent(1, toolAutoClicker, true), toolEvent(2, toolKeySpammer, true),
               toolEvent(3, toolAutoClicker, false), toolEvent(4, toolKeySpammer, false),
               keyEvent(5, 65, true)};
    requestAt(0, requests.playToggle);
    const auto expectAt = [](double moment, bool clicking, bool spamming) {
        desktop.at(moment, [=] {
            EXPECT_EQ(engine.autoClicking.load(), clicking) << moment;
            EXPECT_EQ(engine.keySpamming.load(), spamming) << moment;
        });
    };
    expectAt(0.99, false, false);
    expectAt(1.01, true, false);
    expectAt(2.01, true, true);
    expectAt(3.01, false, true);
    expectAt(4.01, false, false);
    runPlayer();
}

TEST_F(MacroTools, OfAnUnknownIdAreSkippedWithoutASignal) {
    desktop.onCommand = nullptr;
    macro() = {toolEvent(0, 3, true), toolEvent(0, 0, false), keyEvent(1, 65, true)};
    engine.playing = true;
    desktop.at(0.5, [] { EXPECT_FALSE(desktop.isSignalled(Event::command)); });
    runPlayer();
}

TEST_F(MacroTools, StopWhenThePassEnds) {
    macro() = {toolEvent(0, toolAutoClicker, true), toolEvent(0, toolKeySpammer, true),
               keyEvent(1, 65, true)};
    requestAt(0, requests.playToggle);
    desktop.at(0.9, [] { EXPECT_TRUE(engine.autoClicking && engine.keySpamming); });
    desktop.at(1.1, [] {
        EXPECT_FALSE(engine.playing.load());
        EXPECT_FALSE(engine.autoClicking || engine.keySpamming);
    });
    runPlayer();
}

TEST_F(MacroTools, GoOnAfterThePassWhenTheyAreNotToStopWithIt) {
    engine.stopToolsWithMacro = false;
    macro() = {toolEvent(0, toolAutoClicker, true)};
    requestAt(0, requests.playToggle);
    desktop.at(1, [] {
        EXPECT_FALSE(engine.playing.load());
        EXPECT_TRUE(engine.autoClicking.load());
    });
    runPlayer();
}

TEST_F(MacroTools, StopWhenPlaybackIsStopped) {
    macro() = {toolEvent(0, toolAutoClicker, true), keyEvent(100, 65, true)};
    requestAt(0, requests.playToggle);
    requestAt(1, requests.playToggle);
    desktop.at(1.0, [] { EXPECT_FALSE(engine.autoClicking.load()); });
    runPlayer();
    EXPECT_EQ(desktop.texts(), (Texts{"left up", "right up", "left up", "right up", "middle up"}));
}

}  // namespace
}  // namespace ravelin::test
