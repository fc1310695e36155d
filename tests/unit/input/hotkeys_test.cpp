// Hotkeys: which presses are recognised, what they request, and what other programs still see.
#include <gmock/gmock.h>

#include "input/capture.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"

namespace ravelin::test {
namespace {

struct Hearing {
    std::string name;
    std::string script;
    std::string expected;
    void (*setUp)() = [] {};
};

void PrintTo(const Hearing& hearing, std::ostream* out) {
    *out << hearing.name;
}

class Hotkey : public EngineTest, public testing::WithParamInterface<Hearing> {};

TEST_P(Hotkey, IsHeardAsTold) {
    GetParam().setUp();
    EXPECT_EQ(feed(GetParam().script), GetParam().expected);
}

void lockTheHotkeys() {
    hotkeys.unlocked = false;
}

void switchTheHotkeysOff() {
    hotkeys.enabled = false;
}

INSTANTIATE_TEST_SUITE_P(
    Table, Hotkey,
    testing::Values(
        Hearing{"FiresOnceAPress", "0 F6↓ 30 F6↓ 60 F6↓ 90 F6↑ 100 F6↓ F6↑",
                "F6↓=hidden:clickerToggle F6↓=hidden F6↓=hidden F6↑=hidden "
                "F6↓=hidden:clickerToggle F6↑=hidden"},
        Hearing{"EachHasItsRequest", "F8↓ F7↓ F6↓ F9↓",
                "F8↓=hidden:recToggle F7↓=hidden:playToggle F6↓=hidden:clickerToggle "
                "F9↓=hidden:keySpamToggle"},
        Hearing{"OtherKeysAreSeen", "A↓ A↓ A↑", "A↓=seen A↓=seen A↑=seen"},
        Hearing{"TwoHeldAtOnce", "F6↓ F9↓ F6↓ F6↑ F9↓ F9↑",
                "F6↓=hidden:clickerToggle F9↓=hidden:keySpamToggle F6↓=hidden F6↑=hidden "
                "F9↓=hidden F9↑=hidden"},
        Hearing{"InjectedKeysAreNone", "~F6↓ ~F6↑ ~F10↓", "~F6↓=seen ~F6↑=seen ~F10↓=seen"},
        Hearing{"InjectedReleaseLeavesThePressHeld", "F6↓ ~F6↑ F6↓ F6↑",
                "F6↓=hidden:clickerToggle ~F6↑=seen F6↓=hidden F6↑=hidden"},
        Hearing{"ReleaseWithoutAPressIsSeen", "F6↑", "F6↑=seen"},
        Hearing{"PressedBeforeItBecameOne", "F5↓ F5↓ F5↑ F5↓",
                "F5↓=seen F5↓=seen F5↑=seen F5↓=seen"},
        Hearing{"UnlockLocksAndStopsEverything", "F10↓ F10↓ F10↑ F6↓ F6↑",
                "F10↓=hidden:stopPlayback+clickerStop+keySpamStop F10↓=hidden F10↑=hidden F6↓=seen "
                "F6↑=seen"},
        Hearing{"UnlockUnlocksWithoutAStop", "F6↓ F6↑ F10↓ F10↑ F6↓",
                "F6↓=seen F6↑=seen F10↓=hidden F10↑=hidden F6↓=hidden:clickerToggle",
                lockTheHotkeys},
        Hearing{"HeldThroughAnUnlockStaysSeen", "F6↓ F10↓ F6↓ F6↑",
                "F6↓=seen F10↓=hidden F6↓=seen F6↑=seen", lockTheHotkeys},
        Hearing{"LockOffMeansNothing", "F10↓ F10↑ F6↓",
                "F10↓=seen F10↑=seen F6↓=hidden:clickerToggle",
                [] {
                    lockTheHotkeys();
                    hotkeys.lockOn = false;
                }},
        Hearing{"LockOffUnlockCodeMayBeAnotherHotkey", "F10↓", "F10↓=hidden:recToggle",
                [] {
                    hotkeys.lockOn = false;
                    hotkeys.rec = 121;
                }},
        Hearing{"UnlockComesBeforeTheOthers", "F10↓",
                "F10↓=hidden:stopPlayback+clickerStop+keySpamStop",
                [] { hotkeys.rec = hotkeys.play = 121; }},
        Hearing{"FirstOfEqualsRecord", "F1↓", "F1↓=hidden:recToggle",
                [] { hotkeys.rec = hotkeys.play = hotkeys.autoClicker = hotkeys.keySpam = 112; }},
        Hearing{"FirstOfEqualsPlay", "F1↓", "F1↓=hidden:playToggle",
                [] { hotkeys.play = hotkeys.autoClicker = hotkeys.keySpam = 112; }},
        Hearing{"FirstOfEqualsClicker", "F1↓", "F1↓=hidden:clickerToggle",
                [] { hotkeys.autoClicker = hotkeys.keySpam = 112; }},
        Hearing{"SwitchedOffAreSeen", "F6↓ F6↑ F10↓ F10↑", "F6↓=seen F6↑=seen F10↓=seen F10↑=seen",
                switchTheHotkeysOff},
        Hearing{"ButtonsCanBeHotkeys", "middle↓ middle↑ side2↓ side2↑ side1↓ side1↑ left↓ left↑",
                "middle↓=hidden:recToggle middle↑=hidden side2↓=hidden:clickerToggle side2↑=hidden "
                "side1↓=seen side1↑=seen left↓=seen left↑=seen",
                [] {
                    hotkeys.rec = 4;
                    hotkeys.autoClicker = 6;
                }},
        Hearing{"InjectedButtonsAreNone", "~middle↓ ~middle↑", "~middle↓=seen ~middle↑=seen",
                [] { hotkeys.rec = 4; }},
        Hearing{"ButtonPressedAgainWithoutARelease", "middle↓ middle↓ middle↑ middle↓",
                "middle↓=hidden:recToggle middle↓=seen middle↑=hidden middle↓=hidden:recToggle",
                [] { hotkeys.rec = 4; }},
        Hearing{"ButtonsAreSeenWhenSwitchedOff", "middle↓ middle↑", "middle↓=seen middle↑=seen",
                [] {
                    hotkeys.rec = 4;
                    switchTheHotkeysOff();
                }},
        Hearing{"KeysAndButtonsAreHeldApart", "A↓ left↓ A↓ left↑ A↑",
                "A↓=hidden:recToggle left↓=seen A↓=hidden left↑=seen A↑=hidden",
                [] { hotkeys.rec = 65; }},
        Hearing{"SlowRepeatsAreRepeats", "0 F6↓ 1499 F6↓ 2998 F6↓ F6↑",
                "F6↓=hidden:clickerToggle F6↓=hidden F6↓=hidden F6↑=hidden"},
        Hearing{"APressAfterSilenceIsANewOne", "0 F6↓ 1500 F6↓ F6↑",
                "F6↓=hidden:clickerToggle F6↓=hidden:clickerToggle F6↑=hidden"},
        Hearing{"SilenceCountsFromTheLastRepeat", "0 F6↓ 1000 F6↓ 2400 F6↓ 3900 F6↓",
                "F6↓=hidden:clickerToggle F6↓=hidden F6↓=hidden F6↓=hidden:clickerToggle"},
        Hearing{"OtherKeysDoNotBreakTheSilence", "0 F6↓ 1000 A↓ A↑ 1600 F6↓",
                "F6↓=hidden:clickerToggle A↓=seen A↑=seen F6↓=hidden:clickerToggle"},
        Hearing{"AfterSilenceAKeyMayHaveBecomeAHotkey", "0 F5↓ 2000 F5↓ F5↑",
                "F5↓=seen F5↓=hidden:recToggle F5↑=hidden",
                [] { desktop.at(1, [] { hotkeys.rec = 116; }); }},
        Hearing{"AfterSilenceAKeyMayBeAHotkeyNoMore", "0 F8↓ 2000 F8↓ F8↑",
                "F8↓=hidden:recToggle F8↓=seen F8↑=seen",
                [] { desktop.at(1, [] { hotkeys.rec = 116; }); }},
        Hearing{"ASlowFilterKeysMakesSlowerRepeats", "0 F6↓ 3999 F6↓ 7999 F6↓",
                "F6↓=hidden:clickerToggle F6↓=hidden F6↓=hidden:clickerToggle",
                [] { desktop.filterKeysPauseMs = 2000; }},
        Hearing{"AFastFilterKeysMakesNoRepeatANewPress", "0 F6↓ 1499 F6↓ 2999 F6↓",
                "F6↓=hidden:clickerToggle F6↓=hidden F6↓=hidden:clickerToggle",
                [] { desktop.filterKeysPauseMs = 100; }},
        Hearing{"AButtonAfterSilenceIsANewPress", "0 middle↓ 1499 middle↓ 2999 middle↓ middle↑",
                "middle↓=hidden:recToggle middle↓=seen middle↓=hidden:recToggle middle↑=hidden",
                [] { hotkeys.rec = 4; }},
        Hearing{"ALockedSessionForgetsWhatIsHeld", "F6↓ leave F6↓ F6↑ A↓ leave A↑",
                "F6↓=hidden:clickerToggle F6↓=hidden:clickerToggle F6↑=hidden A↓=seen A↑=seen"},
        Hearing{"ALockedSessionForgetsWhatWasSwallowed", "F6↓ leave F6↑ middle↓ leave middle↑",
                "F6↓=hidden:clickerToggle F6↑=seen middle↓=hidden:recToggle middle↑=seen",
                [] { hotkeys.rec = 4; }}),
    [](const auto& test) { return test.param.name; });

class Hotkeys : public EngineTest {};

TEST_F(Hotkeys, TellSilenceThoughTheTimeStampWrapsAround) {
    const std::uint32_t f6 = 117;
    const auto fires = [](std::uint32_t time) {
        onKeyboardEvent({f6, true, false, time});
        return takeRequest(requests.clickerToggle);
    };
    EXPECT_TRUE(fires(0xFFFFFF00));
    EXPECT_FALSE(fires(0x00000100));
    EXPECT_TRUE(fires(0x00000100 + 1500));
}

TEST_F(Hotkeys, SignalTheCommandEventOnlyWhenAccepted) {
    feed("A↓");
    EXPECT_FALSE(desktop.isSignalled(platform::Event::command));
    feed("F6↓");
    EXPECT_TRUE(desktop.isSignalled(platform::Event::command));
}

TEST_F(Hotkeys, SignalTheCommandEventWhenTheLockIsFlipped) {
    hotkeys.unlocked = false;
    feed("F10↓");
    EXPECT_TRUE(hotkeys.unlocked.load());
    EXPECT_TRUE(desktop.isSignalled(platform::Event::command));
}

TEST_F(Hotkeys, SignalTheCommandEventWhenTheSessionIsLeft) {
    feed("leave");
    EXPECT_TRUE(desktop.isSignalled(platform::Event::command));
}

TEST_F(Hotkeys, CompareTheWholeCodeButAreHeldByItsLowByte) {
    hotkeys.rec = 0x141;  // shares its low byte with A
    EXPECT_FALSE(onKeyboardEvent({0x41, true, false}));
    EXPECT_FALSE(onKeyboardEvent({0x141, true, false})) << "A is down, so this is its repeat";
    onKeyboardEvent({0x41, false, false});
    EXPECT_TRUE(onKeyboardEvent({0x141, true, false}));
}

TEST_F(Hotkeys, LockStopsEveryRunningToolAndPlayback) {
    passOnEverySignal();
    engine.autoClicking = engine.keySpamming = engine.playing = true;
    feed("F10↓");
    EXPECT_FALSE(engine.autoClicking.load());
    EXPECT_FALSE(engine.keySpamming.load());
    EXPECT_FALSE(engine.playing.load());
}

TEST_F(Hotkeys, AreResetToTheirDefaultsWithoutTouchingTheTargets) {
    hotkeys.rec = hotkeys.play = hotkeys.autoClicker = hotkeys.keySpam = hotkeys.unlock = 65;
    keySpamTargets.keys[0] = 66;
    resetHotkeys();
    EXPECT_EQ(hotkeys.rec.load(), 119U);
    EXPECT_EQ(hotkeys.play.load(), 118U);
    EXPECT_EQ(hotkeys.autoClicker.load(), 117U);
    EXPECT_EQ(hotkeys.keySpam.load(), 120U);
    EXPECT_EQ(hotkeys.unlock.load(), 121U);
    EXPECT_EQ(keySpamTargets.keys[0].load(), 66U);
}

}  // namespace
}  // namespace ravelin::test
