#include "input/player.h"

#include <gmock/gmock.h>

#include <limits>

#include "input/synthetic_input.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"
#include "tests/support/macro_builder.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class Player : public EngineTest {
  protected:
    Player() { passOnEverySignal(); }

    static void playAt(double seconds) { requestAt(seconds, requests.playToggle); }
    // Everything sent, with its milliseconds since `start`.
    static Texts sentSince(double start) {
        Texts texts;
        for (const Sent& sent : desktop.log)
            texts.push_back(std::to_string(std::llround((sent.at - start) * 1000)) + ' ' +
                            sent.text);
        return texts;
    }
};

TEST_F(Player, PressesAKeyAtItsMomentAndLeavesItDown) {
    macro() = {keyEvent(0.5, 65, true)};
    playAt(1);
    runPlayer();
    EXPECT_EQ(sentSince(1), Texts{"500 key 65 down"});
    EXPECT_FALSE(engine.playing.load());
}

TEST_F(Player, NeverSendsAnEventBeforeItsMoment) {
    macro() = {keyEvent(0.5, 65, true), keyEvent(0.5003, 65, false), keyEvent(2.0, 66, true)};
    playAt(1);
    runPlayer();
    ASSERT_EQ(desktop.log.size(), 3U);
    // The pass's clock starts within the microseconds behind its request.
    EXPECT_GE(desktop.log[0].at, 1.5);
    EXPECT_LT(desktop.log[0].at, 1.5 + 5e-5);
    EXPECT_NEAR(desktop.log[1].at, 1.5003, 5e-5);
    EXPECT_NEAR(desktop.log[2].at, 3.0, 5e-5);
}

TEST_F(Player, SendsEveryKindAsItWasRecorded) {
    macro() = {moveEvent(0.0, 10, 20),           rawEvent(0.1, -3, 4),
               buttonEvent(0.2, 0x0008, 30, 40), keyEvent(0.3, 37, true),
               keyEvent(0.4, 37, false),         wheelEvent(0.5, -120),
               buttonEvent(0.6, 0x0010, 30, 40), buttonEvent(0.7, 0x0080, 1, 2)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0),
              (Texts{"0 move 10,20", "0 move 10,20", "100 move by -3,4", "200 move 30,40",
                     "200 right down", "300 key 37 ext down", "400 key 37 ext up", "500 wheel -120",
                     "600 move 30,40", "600 right up", "700 move 1,2", "700 side down"}));
}

TEST_F(Player, PressesOnlyForADownOfExactlyOne) {
    UnifiedEvent odd = keyEvent(0, 65, true);
    odd.down = 2;
    macro() = {odd};
    playAt(0);
    runPlayer();
    EXPECT_EQ(desktop.texts(), Texts{"key 65 up"});
}

TEST_F(Player, PassesOverKindsThatItDoesNotKnow) {
    UnifiedEvent unknown = keyEvent(0.5, 65, true);
    unknown.kind = 6;
    macro() = {unknown, keyEvent(1.0, 66, true)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), Texts{"1000 key 66 down"});
}

TEST_F(Player, HalvesEveryTimeAtDoubleSpeed) {
    toolSettings.tspd = 2.0F;
    macro() = {keyEvent(0.5, 65, true), keyEvent(2.0, 65, false)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"250 key 65 down", "1000 key 65 up"}));
}

TEST_F(Player, DoublesEveryTimeAtHalfSpeed) {
    toolSettings.tspd = 0.5F;
    macro() = {keyEvent(0.5, 65, true), keyEvent(2.0, 65, false)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"1000 key 65 down", "4000 key 65 up"}));
}

TEST_F(Player, TakesANewSpeedFromTheNextEventOn) {
    macro() = {keyEvent(1.0, 65, true), keyEvent(2.0, 66, true), keyEvent(3.0, 67, true)};
    playAt(0);
    desktop.at(1.5, [] { toolSettings.tspd = 0.5F; });
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"1000 key 65 down", "2000 key 66 down", "6000 key 67 down"}));
}

TEST_F(Player, SendsWhatHasPassedAtOnceWhenTheSpeedRises) {
    macro() = {keyEvent(4.0, 65, true), keyEvent(5.0, 66, true), keyEvent(20.0, 67, true)};
    playAt(0);
    desktop.at(1, [] { toolSettings.tspd = 4.0F; });
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"4000 key 65 down", "4000 key 66 down", "5000 key 67 down"}));
}

TEST_F(Player, DoesNotLetDelaysAddUp) {
    for (int i = 1; i <= 20; ++i)
        macro().append(keyEvent(i * 0.01, 65, i % 2 == 1));
    // Every record takes 3 ms to be taken.
    desktop.onSend = [](const Sent&) { desktop.advance(0.003); };
    playAt(0);
    runPlayer();
    EXPECT_NEAR(desktop.log.back().at, 0.2, 1e-4);
}

TEST_F(Player, SendsLateEventsWithoutAPause) {
    macro() = {keyEvent(0.1, 65, true), keyEvent(0.2, 66, true), keyEvent(0.3, 67, true),
               keyEvent(0.9, 68, true)};
    desktop.onSend = [](const Sent& sent) {
        if (sent.text == "key 65 down") desktop.advance(0.5);
    };
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0),
              (Texts{"100 key 65 down", "600 key 66 down", "600 key 67 down", "900 key 68 down"}));
}

TEST_F(Player, PlaysEventsThatStandOutOfOrderAsTheyStand) {
    macro() = {keyEvent(1.0, 65, true), keyEvent(0.5, 66, true), keyEvent(-3.0, 67, true)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"1000 key 65 down", "1000 key 66 down", "1000 key 67 down"}));
}

TEST_F(Player, MovesSmoothlyBetweenTwoPoints) {
    macro() = {moveEvent(0, 0, 0), moveEvent(1, 1000, 0)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(desktop.log.back().text, "move 1000,0");
    EXPECT_NEAR(desktop.log.back().at, 1.0, 1e-4);
    // About one step a millisecond, every one at the place of its moment and none sent twice.
    EXPECT_GT(desktop.log.size(), 900U);
    std::int32_t last = -1;
    for (std::size_t i = 2; i + 1 < desktop.log.size(); ++i) {
        std::int32_t x = 0;
        ASSERT_EQ(std::sscanf(desktop.log[i].text.c_str(), "move %d,0", &x), 1);
        EXPECT_GT(x, last);
        EXPECT_NEAR(x, desktop.log[i].at * 1000, 1.1);
        last = x;
    }
}

TEST_F(Player, TruncatesPointsOnTheWayTowardZero) {
    desktop.screen = {65536, 65536};
    macro() = {moveEvent(0, -10, 10), moveEvent(0.1, 10, -10)};
    playAt(0);
    runPlayer();
    // Both coordinates cross zero at the same truncation, so they stay each other's opposite.
    for (const Sent& sent : desktop.log) {
        const auto& input = std::get<platform::MouseInput>(sent.input);
        EXPECT_EQ(input.dx, -input.dy) << sent.text;
    }
    EXPECT_THAT(desktop.texts(), testing::Contains("move 0,0").Times(1));
}

TEST_F(Player, SendsARecordedPointOnceThoughTheNextWayBeginsThere) {
    macro() = {moveEvent(0, 0, 0), moveEvent(0.01, 10, 0), moveEvent(0.02, 20, 0)};
    playAt(0);
    runPlayer();
    EXPECT_THAT(desktop.texts(), testing::Contains("move 10,0").Times(1));
}

TEST_F(Player, StartsTheWayOfAMoveAtTheLastClick) {
    macro() = {moveEvent(0, 0, 0), buttonEvent(0, 2, 500, 500), moveEvent(0.01, 510, 500)};
    playAt(0);
    runPlayer();
    const auto texts = desktop.texts();
    ASSERT_GT(texts.size(), 4U);
    EXPECT_EQ(texts[2], "move 500,500");
    EXPECT_EQ(texts[3], "left down");
    // The place of the click itself is sent once more: the last point sent on the way was another.
    EXPECT_EQ(texts[4], "move 500,500");
    EXPECT_EQ(texts[5], "move 501,500");
    EXPECT_EQ(texts.back(), "move 510,500");
}

TEST_F(Player, DoesNotMoveAlongTowardsEventsOfAnotherKind) {
    macro() = {moveEvent(0, 0, 0), buttonEvent(1, 2, 500, 500)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0),
              (Texts{"0 move 0,0", "0 move 0,0", "1000 move 500,500", "1000 left down"}));
}

TEST_F(Player, MovesAlongFromTheMomentOfTheEventBefore) {
    macro() = {moveEvent(0, 0, 0), keyEvent(1.0, 65, true), moveEvent(1.1, 100, 0)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(desktop.texts()[2], "key 65 down");
    for (std::size_t i = 3; i < desktop.log.size(); ++i)
        EXPECT_GE(desktop.log[i].at, 1.0);
    EXPECT_GT(desktop.log.size(), 90U);
}

TEST_F(Player, MovesAtOnceWhenTwoMovesShareAMoment) {
    macro() = {moveEvent(0.5, 10, 10), moveEvent(0.5, 90, 90)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"0 move 10,10", "500 move 10,10", "500 move 90,90"}));
}

TEST_F(Player, GoesToTheFirstPlaceOfTheMacroAtOnce) {
    macro() = {keyEvent(0, 65, true), buttonEvent(2, 2, 7, 8), moveEvent(3, 1, 1)};
    playAt(0);
    desktop.at(1, [] { EXPECT_EQ(desktop.texts(), (Texts{"move 7,8", "key 65 down"})); });
    runPlayer();
}

TEST_F(Player, StartsFromTheCursorWithoutAnyPlace) {
    desktop.cursor = {300, 300};
    macro() = {keyEvent(0.1, 65, true), rawEvent(0.2, 1, 1)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"100 key 65 down", "200 move by 1,1"}));
}

TEST_F(Player, SleepsThroughAllButTheLastTwoMilliseconds) {
    macro() = {keyEvent(1.0, 65, true)};
    playAt(0);
    runPlayer();
    // A thousand checks a millisecond apart, then a check a microsecond for the last one or two.
    EXPECT_GT(desktop.counterReads, 1500);
    EXPECT_LT(desktop.counterReads, 3500);
}

TEST_F(Player, RefusesAnEmptyMacroQuietly) {
    playAt(0);
    desktop.at(1, [] { EXPECT_FALSE(engine.playing.load()); });
    engine.autoClicking = true;
    runPlayer();
    EXPECT_THAT(desktop.log, IsEmpty());
    EXPECT_TRUE(engine.autoClicking.load()) << "no tool stops for a macro that was none";
}

TEST_F(Player, RefusesToPlayWithoutAProfile) {
    macro() = {keyEvent(0, 65, true)};
    currentProfile = -1;
    playAt(0);
    desktop.at(1, [] { EXPECT_FALSE(engine.playing.load()); });
    runPlayer();
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(Player, StopsWithinOneCheckAndReleasesLeftAndRight) {
    macro() = {keyEvent(0.1, 65, true), keyEvent(100, 65, false)};
    playAt(0);
    playAt(3);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"100 key 65 down", "3000 left up", "3000 right up"}));
    EXPECT_LT(desktop.now(), 3.002);
}

TEST_F(Player, IsStoppedWhenTheHotkeysAreLocked) {
    macro() = {keyEvent(100, 65, false)};
    playAt(0);
    desktop.at(3, [] { feed("F10↓ F10↑"); });
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"3000 left up", "3000 right up"}));
    EXPECT_FALSE(engine.playing.load());
}

TEST_F(Player, NeverSendsTheFirstEventAtSpeedZero) {
    toolSettings.tspd = 0.0F;
    for (const double time : {0.0, 1.0}) {
        desktop.log.clear();
        engine.running = true;
        macro() = {keyEvent(time, 65, true)};
        const double start = desktop.now();
        playAt(start + 1);
        desktop.at(start + 1000, [] { EXPECT_THAT(desktop.log, IsEmpty()); });
        playAt(start + 1001);
        desktop.at(start + 1002, [] { EXPECT_FALSE(engine.playing.load()); });
        quitAt(start + 1003);
        runPlayer();
        desktop.clearQuit();
    }
}

TEST_F(Player, DoesNotSpinWhileAMomentNeverComes) {
    toolSettings.tspd = 0.0F;
    macro() = {keyEvent(0.0, 65, true)};
    playAt(0);
    quitAt(10);
    runPlayer();
    EXPECT_LT(desktop.counterReads, 11'000);
}

TEST_F(Player, SendsEverythingAtOnceAtANegativeSpeed) {
    toolSettings.tspd = -1.0F;
    macro() = {keyEvent(1, 65, true), moveEvent(2, 5, 5)};
    playAt(0);
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"0 move 5,5", "0 key 65 down", "0 move 5,5"}));
}

TEST_F(Player, SurvivesMomentsThatAreNoNumbers) {
    const double infinite = std::numeric_limits<double>::infinity();
    macro() = {moveEvent(-infinite, 1, 1), moveEvent(0.5, 900, 900), moveEvent(infinite, 5, 5)};
    playAt(0);
    quitAt(10);
    runPlayer();
    EXPECT_EQ(desktop.log.back().text, "move 900,900");
}

TEST_F(Player, PlaysWhatStandsInTheMacroAtTheStartOfAPass) {
    macro() = {keyEvent(1, 65, true), keyEvent(2, 66, true)};
    playAt(0);
    desktop.at(1.5, [] { macro() = {keyEvent(0, 67, true)}; });
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"1000 key 65 down", "2000 key 66 down"}));
}

TEST_F(Player, EndsWithinOneCheckAtQuit) {
    macro() = {keyEvent(1000, 65, true)};
    playAt(0);
    quitAt(5);
    runPlayer();
    EXPECT_LT(desktop.now(), 5.002);
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(Player, ReleasesTheButtonsThatItHoldsAtQuit) {
    struct Case {
        std::uint32_t flags;
        std::string released;
    };
    for (const Case& one :
         {Case{mouse_flag::leftDown, "left up"}, Case{mouse_flag::rightDown, "right up"},
          Case{mouse_flag::middleDown, ""}, Case{mouse_flag::leftUp, ""}}) {
        resetEngine();
        passOnEverySignal();
        macro() = {buttonEvent(0, one.flags, 5, 5), keyEvent(0.5, 65, true),
                   keyEvent(10, 66, true)};
        playAt(0);
        quitAt(1);
        runPlayer();
        auto texts = desktop.texts();
        EXPECT_EQ(texts.back(), one.released.empty() ? "key 65 down" : one.released);
        EXPECT_EQ(texts.size(), one.released.empty() ? 4U : 5U);
    }
}

TEST_F(Player, ReleasesNothingAtQuitThatAStopHasReleased) {
    macro() = {buttonEvent(0, mouse_flag::leftDown, 5, 5), keyEvent(10, 66, true)};
    playAt(0);
    desktop.at(1, [] {
        postRequest(requests.stopPlayback);
        engine.running.exchange(false);
        platform::signal(Event::quit);
    });
    runPlayer();
    EXPECT_THAT(desktop.texts(), testing::Contains("left up").Times(1));
}

TEST_F(Player, BeginsAnewWhenItIsStoppedAndStartedBetweenTwoChecks) {
    macro() = {keyEvent(0.1, 65, true), keyEvent(0.5, 66, true)};
    playAt(0);
    desktop.at(0.2, [] {
        postRequest(requests.playToggle);
        postRequest(requests.playToggle);
    });
    runPlayer();
    EXPECT_EQ(sentSince(0), (Texts{"100 key 65 down", "200 left up", "200 right up",
                                   "300 key 65 down", "700 key 66 down"}));
}

TEST_F(Player, CountsWhatTheSystemRefuses) {
    macro() = {keyEvent(0, 65, true), keyEvent(0.1, 65, false), wheelEvent(0.2, 120),
               rawEvent(0.3, 1, 1), moveEvent(0.3, 7, 7)};
    desktop.takesInput = false;
    playAt(0);
    runPlayer();
    // The move to the start, two keys, the wheel, the raw motion and the move.
    EXPECT_EQ(health.refusedSends.load(), 6U);
    desktop.takesInput = true;
    playAt(1);
    engine.running = true;
    desktop.clearQuit();
    runPlayer();
    EXPECT_EQ(health.refusedSends.load(), 6U);
}

TEST_F(Player, MovesToRecordedPointsOfAScaledScreen) {
    desktop.scale = 1.25;
    macro() = {moveEvent(0, 1600, 1000), buttonEvent(0.1, mouse_flag::leftDown, 1601, 1001)};
    playAt(0);
    runPlayer();
    EXPECT_THAT(desktop.texts(), testing::Contains("move 1600,1000"));
    EXPECT_THAT(desktop.texts(), testing::Contains("move 1601,1001"));
}

TEST_F(Player, TakesScanCodesFromTheLayoutOfTheProgramInFront) {
    macro() = {keyEvent(0.1, 65, true), keyEvent(0.2, 65, false), keyEvent(0.3, 65, true)};
    desktop.at(0.15, [] { desktop.foregroundLayout = 2; });
    desktop.at(0.25, [] { desktop.foregroundLayout = 4; });
    playAt(0);
    runPlayer();
    EXPECT_EQ(desktop.texts(), (Texts{"key 65 down", "key 67 up", "key 69 down"}));
}

TEST_F(Player, WaitsForItsRequestWithoutACheck) {
    quitAt(3600);
    runPlayer();
    EXPECT_EQ(desktop.counterReads, 0);
}

}  // namespace
}  // namespace ravelin::test
