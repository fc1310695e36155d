// What a recording keeps of real input.
#include "input/recorder.h"

#include <gmock/gmock.h>

#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"
#include "tests/support/macro_text.h"

namespace ravelin::test {
namespace {

struct Take {
    std::string name;
    std::string script;  // from the start of the recording on
    std::string macro;
    void (*setUp)() = [] {};
};

void PrintTo(const Take& take, std::ostream* out) {
    *out << take.name;
}

class Recorded : public EngineTest, public testing::WithParamInterface<Take> {};

TEST_P(Recorded, IsKeptAsTold) {
    passOnEverySignal();
    GetParam().setUp();
    feed("0 F8↓ F8↑ " + GetParam().script + " F8↓ F8↑");
    EXPECT_FALSE(engine.recording.load());
    EXPECT_EQ(textOf(macro()), GetParam().macro);
}

void withRelativeMoves() {
    toolSettings.trel = true;
}

void overOwnWindow() {
    desktop.isOwnWindow = [](platform::Point point) { return point.x < 100; };
}

INSTANTIATE_TEST_SUITE_P(
    Table, Recorded,
    testing::Values(
        Take{"NothingIsEmpty", "1000", ""},
        Take{"BeginsAtZero", "2500 A↓ 2600 A↑", "0:key 65 down, 100:key 65 up"},
        Take{"KeyRepeatsArePresses", "10 A↓ 500 A↓ 530 A↓ 560 A↑",
             "0:key 65 down, 490:key 65 down, 520:key 65 down, 550:key 65 up"},
        Take{"HotkeysAreNotKept", "10 F6↓ F6↓ F6↑ 20 A↓", "0:tool 1 on, 10:key 65 down"},
        Take{"TheStoppingHotkeyIsNotKept", "10 A↓ 20 A↑ 5000", "0:key 65 down, 10:key 65 up"},
        Take{"InjectedInputIsNotKept", "10 ~A↓ ~A↑ ~left↓ ~left↑ ~wheel@120 ~move@5,5 20 B↓",
             "0:key 66 down"},
        Take{"PickedClicksAreNotKept", "10 left↓@700,7 20 left↑@700,7", "0:left up 700,7",
             [] { capture.pickingLocation = true; }},
        Take{"MovesAreKeptAtEveryNewPoint", "10 move@1,1 20 move@1,1 30 move@1,2 40 move@1,1",
             "0:move 1,1, 20:move 1,2, 30:move 1,1"},
        Take{"AMouseThatStandsStillIsNotKept", "10 move@0,0 20 move@0,0", ""},
        Take{"InjectedMovesCountAsSeen", "10 ~move@7,7 20 move@7,7 30 move@8,8", "0:move 8,8"},
        Take{"MovesBeforeTheRecordingCountAsSeen", "10 move@7,7 20 move@8,8", "0:move 8,8",
             [] { feed("move@7,7"); }},
        Take{"AbsoluteMovesCanBeLeftOut", "10 move@7,7 20 A↓", "0:key 65 down",
             [] { toolSettings.tmv = false; }},
        Take{"RelativeMovesCanBeLeftOut", "10 move@7,7 20 raw@1,1 30 A↓", "0:key 65 down",
             [] {
                 toolSettings.tmv = false;
                 withRelativeMoves();
             }},
        Take{"RelativeMovesComeFromRawInput", "10 move@7,7 raw@7,7 20 raw@-2,0 30 raw@0,0",
             "0:raw 7,7, 10:raw -2,0", withRelativeMoves},
        Take{"RelativeMovesCountTheCursorAsSeen", "10 move@7,7 raw@7,7", "0:raw 7,7",
             withRelativeMoves},
        Take{"RawInputIsNotKeptBesideAbsoluteMoves", "10 move@7,7 raw@7,7", "0:move 7,7"},
        Take{"WheelKeepsItsSign", "10 wheel@120 20 wheel@-240", "0:wheel 120, 10:wheel -240"},
        Take{"WheelCanBeLeftOut", "10 wheel@120 20 A↓", "0:key 65 down",
             [] { toolSettings.tscr = false; }},
        Take{"KeysCanBeLeftOut", "10 A↓ A↑ 20 wheel@1", "0:wheel 1",
             [] { toolSettings.tkey = false; }},
        Take{"ClicksCanBeLeftOut", "10 left↓@5,5 left↑ 20 A↓", "0:key 65 down",
             [] { toolSettings.tclk = false; }},
        Take{"EveryButtonHasItsFlags",
             "10 left↓@1,2 20 left↑@3,4 30 right↓@1,2 40 right↑@3,4 50 middle↓@1,2 60 middle↑@3,4",
             "0:left down 1,2, 10:left up 3,4, 20:right down 1,2, 30:right up 3,4, "
             "40:middle down 1,2, 50:middle up 3,4"},
        Take{"SideButtonsArePressedButNeverReleased",
             "10 side1↓@1,2 20 side1↑@1,2 30 side2↓@3,4 40 side2↑@3,4",
             "0:side down 1,2, 20:side down 3,4"},
        Take{"OwnWindowsAreNotClicked", "10 left↓@50,5 20 left↑@50,5 30 left↓@150,5 40 left↑@150,5",
             "0:left down 150,5, 10:left up 150,5", overOwnWindow},
        // The thread that hears of the press counts in the pixels of the press.
        Take{"OwnWindowsAreNotClickedOnAScaledScreen",
             "10 left↓@90,5 20 left↑@90,5 30 left↓@120,5 40 left↑@120,5",
             "0:left down 120,5, 10:left up 120,5",
             [] {
                 desktop.scale = 1.5;
                 platform::enterWorkerThread();
                 overOwnWindow();
             }},
        Take{"ReleaseOfAnOwnPressIsOwnAnywhere", "10 left↓@50,5 20 left↑@500,5 30 left↑@500,5",
             "0:left up 500,5", overOwnWindow},
        Take{"ReleaseOverAnOwnWindowIsKept", "10 left↓@500,5 20 left↑@50,5",
             "0:left down 500,5, 10:left up 50,5", overOwnWindow},
        Take{"OwnPressesAreToldApartByButton", "10 left↓@50,5 20 right↓@500,5 30 right↑ 40 left↑",
             "0:right down 500,5, 10:right up 0,0", overOwnWindow},
        Take{"OwnPressesAreToldWhileClicksAreLeftOut", "10 left↓@50,5 20 F6↓ 30 left↑@500,5",
             "0:tool 1 on",
             [] {
                 overOwnWindow();
                 toolSettings.tclk = false;
                 // Clicks are wanted again by the time the button comes up.
                 desktop.onCommand = [] {
                     if (engine.recording) toolSettings.tclk = desktop.now() > 0.015;
                     runCommandPass();
                 };
             }},
        Take{"ToolsAreKept", "10 F6↓ F6↑ 20 F9↓ F9↑ 30 F6↓ F6↑ 40 F9↓ F9↑",
             "0:tool 1 on, 10:tool 2 on, 20:tool 1 off, 30:tool 2 off"},
        Take{"InputIsKeptWhileTheHotkeysAreLocked", "10 F10↓ F10↑ 20 F6↓ F6↑ 30 F10↓ F10↑",
             "0:key 117 down, 0:key 117 up"}),
    [](const auto& test) { return test.param.name; });

class Recorder : public EngineTest {
  protected:
    Recorder() { passOnEverySignal(); }
};

TEST_F(Recorder, KeepsNothingWhileItIsOff) {
    feed("A↓ A↑ left↓ left↑ move@5,5 wheel@1 raw@1,1");
    EXPECT_TRUE(macro().empty());
}

TEST_F(Recorder, KeepsOnlyTheReleaseOfACapturedKey) {
    feed("F8↓ F8↑");
    reassignKey("play");
    feed("10 A↓ A↑ 20 F8↓");
    EXPECT_EQ(textOf(macro()), "0:key 65 up");
}

TEST_F(Recorder, AsksForTheWindowUnderAPressOnly) {
    std::vector<platform::Point> asked;
    desktop.isOwnWindow = [&](platform::Point point) {
        asked.push_back(point);
        return false;
    };
    feed("left↓@1,1 left↑ F8↓ F8↑ left↓@2,2 move@3,3 left↑@4,4 wheel@1");
    EXPECT_THAT(asked, testing::ElementsAre(platform::Point{2, 2}));
}

TEST_F(Recorder, StampsWithSecondsOfTheCounter) {
    feed("0 F8↓ F8↑ 1234 A↓");
    EXPECT_NEAR(macro()[0].time, 1.234, 1e-5) << "shifted to zero only when it stops";
}

TEST_F(Recorder, KeepsNothingWithoutAProfile) {
    currentProfile = -1;
    feed("F8↓ F8↑ A↓ F8↓");
    EXPECT_FALSE(engine.recording.load());
    EXPECT_TRUE(profiles[0].events.empty());
}

TEST_F(Recorder, EmptiesTheMacroWhenItStartsAfresh) {
    feed("F8↓ F8↑ A↓ F8↓ F8↑ F8↓");
    EXPECT_TRUE(engine.recording.load());
    EXPECT_TRUE(macro().empty());
}

TEST_F(Recorder, LeavesTheSnapshotOfAPlayerAlone) {
    feed("F8↓ F8↑ A↓");
    const EventList snapshot = macro();
    feed("B↓ F8↓ F8↑");
    EXPECT_EQ(snapshot.size(), 1U);
    EXPECT_EQ(snapshot[0].vk, 65U);
}

TEST_F(Recorder, FollowsASwitchOfTheProfile) {
    feed("0 F8↓ F8↑ 10 A↓");
    profiles.push_back({"Other", "", {}});
    currentProfile = 1;
    feed("20 B↓ 30 F8↓");
    EXPECT_EQ(textOf(profiles[0].events), "10:key 65 down") << "not the one that was stitched";
    EXPECT_EQ(textOf(profiles[1].events), "0:key 66 down");
}

}  // namespace
}  // namespace ravelin::test
