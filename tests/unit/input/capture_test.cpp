// Capture of a new hotkey or key-spam target, and the location picker.
#include "input/capture.h"

#include <gmock/gmock.h>

#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"

namespace ravelin::test {
namespace {

class KeyCapture : public EngineTest {
  protected:
    KeyCapture() { passOnEverySignal(); }
};

struct SlotOutcome {
    std::string slot;
    const std::atomic<std::uint32_t>& hotkey;
};

class HotkeyCapture : public KeyCapture, public testing::WithParamInterface<SlotOutcome> {};

TEST_P(HotkeyCapture, TakesTheNextKey) {
    reassignKey(GetParam().slot);
    EXPECT_EQ(feed("F2↓"), "F2↓=hidden");
    EXPECT_EQ(GetParam().hotkey.load(), 113U);
    EXPECT_EQ(armedSlotName(), "");
}

TEST_P(HotkeyCapture, IsCancelledByEsc) {
    const auto before = GetParam().hotkey.load();
    reassignKey(GetParam().slot);
    EXPECT_EQ(feed("Esc↓"), "Esc↓=hidden");
    EXPECT_EQ(GetParam().hotkey.load(), before);
    EXPECT_EQ(armedSlotName(), "");
}

TEST_P(HotkeyCapture, TakesAMouseButton) {
    reassignKey(GetParam().slot);
    EXPECT_EQ(feed("middle↓"), "middle↓=hidden");
    EXPECT_EQ(GetParam().hotkey.load(), 4U);
}

TEST_P(HotkeyCapture, TakesAKeyThatIsAnotherHotkeyAlready) {
    reassignKey(GetParam().slot);
    feed("F6↓");
    EXPECT_EQ(GetParam().hotkey.load(), 117U);
    EXPECT_FALSE(engine.autoClicking.load());
}

INSTANTIATE_TEST_SUITE_P(Slots, HotkeyCapture,
                         testing::Values(SlotOutcome{"rec", hotkeys.rec},
                                         SlotOutcome{"play", hotkeys.play},
                                         SlotOutcome{"auto", hotkeys.autoClicker},
                                         SlotOutcome{"keyspamhotkey", hotkeys.keySpam},
                                         SlotOutcome{"unlock", hotkeys.unlock}),
                         [](const auto& test) { return test.param.slot; });

TEST_F(KeyCapture, NamesTheArmedSlotUntilTheKeyIsTaken) {
    for (const std::string slot :
         {"rec", "play", "auto", "keyspamhotkey", "keyspamtarget", "unlock"}) {
        reassignKey(slot);
        EXPECT_EQ(armedSlotName(), slot);
    }
    feed("Esc↓");
    EXPECT_EQ(armedSlotName(), "");
}

TEST_F(KeyCapture, NumbersTheSlotsFromOneToSix) {
    std::int32_t number = 0;
    for (const auto* slot : {"rec", "play", "auto", "keyspamhotkey", "keyspamtarget", "unlock"}) {
        reassignKey(slot);
        EXPECT_EQ(static_cast<std::int32_t>(capture.slot.load()), ++number);
    }
}

TEST_F(KeyCapture, KeepsTheArmedSlotWhenTheNameIsUnknown) {
    reassignKey("play");
    reassignKey("Rec");
    reassignKey("");
    EXPECT_EQ(armedSlotName(), "play");
}

TEST_F(KeyCapture, WorksWhileTheHotkeysAreSwitchedOff) {
    hotkeys.enabled = false;
    reassignKey("rec");
    EXPECT_EQ(feed("F2↓ F2↑"), "F2↓=hidden F2↑=seen");
    EXPECT_EQ(hotkeys.rec.load(), 113U);
}

TEST_F(KeyCapture, IsAnsweredOnceByAKeyThatIsHeld) {
    for (const std::string slot : {"rec", "play", "auto", "keyspamhotkey", "unlock"}) {
        resetEngine();
        passOnEverySignal();
        reassignKey(slot);
        // The capture answered, the repeats are nobody's press and fire nothing.
        EXPECT_EQ(feed("0 F2↓ 500 F2↓ 530 F2↓ F2↑"), "F2↓=hidden F2↓=seen F2↓=seen F2↑=seen");
        EXPECT_FALSE(engine.recording || engine.playing || engine.autoClicking ||
                     engine.keySpamming || !hotkeys.unlocked)
            << slot;
        EXPECT_EQ(feed("F2↓"), "F2↓=hidden") << slot;
        EXPECT_TRUE(engine.recording || engine.playing || engine.autoClicking ||
                    engine.keySpamming || !hotkeys.unlocked)
            << slot;
    }
}

TEST_F(KeyCapture, KeepsARecordedMacroWhenTheRecordKeyIsHeldAtItsCapture) {
    macro() = {{.kind = 3, .vk = 65, .down = 1}};
    reassignKey("rec");
    feed("0 F2↓ 500 F2↓");
    EXPECT_EQ(macro().size(), 1U);
}

TEST_F(KeyCapture, CountsAHotkeyThatIsHeldWhileItIsCapturedAsDown) {
    EXPECT_EQ(feed("0 F6↓"), "F6↓=hidden");
    EXPECT_TRUE(engine.autoClicking);
    reassignKey("rec");
    EXPECT_EQ(feed("500 F6↓ 530 F6↓ F6↑"), "F6↓=hidden F6↓=hidden F6↑=hidden");
    EXPECT_FALSE(engine.recording);
}

TEST_F(KeyCapture, CountsTheButtonThatAnswersAsDown) {
    reassignKey("rec");
    EXPECT_EQ(feed("0 middle↓ 20 middle↓ middle↑ middle↓"),
              "middle↓=hidden middle↓=seen middle↑=seen middle↓=hidden");
    EXPECT_TRUE(engine.recording);
}

TEST_F(KeyCapture, CountsTheButtonThatAnswersThePickerAsDown) {
    hotkeys.rec = 1;
    hotkeys.autoClicker = 2;
    for (const std::string button : {"left", "right"}) {
        pickLocation();
        EXPECT_EQ(feed(button + "↓ 20 " + button + "↓ " + button + "↑"),
                  button + "↓=hidden " + button + "↓=seen " + button + "↑=seen");
        EXPECT_FALSE(engine.recording || engine.autoClicking);
    }
}

TEST_F(KeyCapture, IgnoresInjectedInput) {
    reassignKey("rec");
    EXPECT_EQ(feed("~F2↓ ~middle↓"), "~F2↓=seen ~middle↓=seen");
    EXPECT_EQ(armedSlotName(), "rec");
}

TEST_F(KeyCapture, TakesTheLaterOfTwoKeysBeforeThePass) {
    desktop.onCommand = nullptr;
    reassignKey("rec");
    EXPECT_EQ(feed("F2↓ F3↓"), "F2↓=hidden F3↓=hidden");
    runCommandPass();
    EXPECT_EQ(hotkeys.rec.load(), 114U);
}

TEST_F(KeyCapture, DropsACodeThatComesAfterTheSlotWasServed) {
    capture.code = 113;
    runCommandPass();
    reassignKey("rec");
    runCommandPass();
    EXPECT_EQ(hotkeys.rec.load(), 119U);
    EXPECT_EQ(armedSlotName(), "rec");
}

TEST_F(KeyCapture, NeverMakesTheLeftButtonTheUnlockKey) {
    reassignKey("unlock");
    EXPECT_EQ(feed("left↓ left↑"), "left↓=seen left↑=seen");
    EXPECT_EQ(hotkeys.unlock.load(), 121U);
    EXPECT_EQ(armedSlotName(), "unlock");
    EXPECT_EQ(feed("right↓"), "right↓=hidden");
    EXPECT_EQ(hotkeys.unlock.load(), 2U);
}

TEST_F(KeyCapture, MakesTheLeftButtonAnyOtherHotkey) {
    reassignKey("play");
    EXPECT_EQ(feed("left↓"), "left↓=hidden");
    EXPECT_EQ(hotkeys.play.load(), 1U);
}

TEST_F(KeyCapture, TakesNoButtonAsATarget) {
    reassignKey("keyspamtarget");
    EXPECT_EQ(feed("left↓ left↑ middle↓ middle↑ side2↓"),
              "left↓=seen left↑=seen middle↓=seen middle↑=seen side2↓=seen");
    EXPECT_EQ(keySpamTargets.count.load(), 1);
    EXPECT_EQ(armedSlotName(), "keyspamtarget");
}

TEST_F(KeyCapture, LetsAButtonHotkeyFireWhileATargetIsAwaited) {
    hotkeys.autoClicker = 4;
    reassignKey("keyspamtarget");
    EXPECT_EQ(feed("middle↓"), "middle↓=hidden");
    EXPECT_TRUE(engine.autoClicking.load());
    EXPECT_EQ(armedSlotName(), "keyspamtarget");
}

TEST_F(KeyCapture, AddsATarget) {
    reassignKey("keyspamtarget");
    feed("A↓");
    EXPECT_EQ(keySpamTargets.count.load(), 2);
    EXPECT_EQ(keySpamTargets.keys[1].load(), 65U);
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32|65,0");
}

TEST_F(KeyCapture, ArmsWithoutSignallingTheCommandEvent) {
    desktop.onCommand = nullptr;
    reassignKey("rec");
    pickLocation();
    EXPECT_FALSE(desktop.isSignalled(platform::Event::command));
}

class LocationPicker : public EngineTest {
  protected:
    LocationPicker() {
        toolSettings.fixedX = 5;
        toolSettings.fixedY = 6;
        pickLocation();
    }
};

TEST_F(LocationPicker, TakesTheLeftClick) {
    EXPECT_EQ(feed("left↓@700,-20 left↑@700,-20"), "left↓@700,-20=hidden left↑@700,-20=seen");
    EXPECT_EQ(toolSettings.fixedX.load(), 700);
    EXPECT_EQ(toolSettings.fixedY.load(), -20);
    EXPECT_EQ(toolSettings.locMode.load(), 1);
    EXPECT_FALSE(capture.pickingLocation.load());
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,1,700,-20,0,0,0,5,1,10,32,32,0");
}

TEST_F(LocationPicker, IsCancelledByARightOrMiddleClick) {
    for (const std::string button : {"right", "middle"}) {
        pickLocation();
        EXPECT_EQ(feed(button + "↓@1,2"), button + "↓@1,2=hidden");
        EXPECT_EQ(toolSettings.fixedX.load(), 5);
        EXPECT_EQ(toolSettings.locMode.load(), 0);
        EXPECT_FALSE(capture.pickingLocation.load());
        EXPECT_EQ(profiles[0].settingsLine, "");
    }
}

TEST_F(LocationPicker, LeavesSideButtonsToTheirHotkey) {
    hotkeys.autoClicker = 5;
    EXPECT_EQ(feed("side1↓ side1↑ side2↓"),
              "side1↓=hidden:clickerToggle side1↑=hidden side2↓=seen");
    EXPECT_TRUE(capture.pickingLocation.load());
}

TEST_F(LocationPicker, ComesBeforeAnArmedSlot) {
    reassignKey("rec");
    EXPECT_EQ(feed("left↓@9,9"), "left↓@9,9=hidden");
    EXPECT_EQ(toolSettings.fixedX.load(), 9);
    EXPECT_EQ(armedSlotName(), "rec");
    EXPECT_EQ(capture.code.load(), 0U);
}

TEST_F(LocationPicker, ComesBeforeAButtonHotkey) {
    hotkeys.rec = 1;
    EXPECT_EQ(feed("left↓ left↑ left↓"), "left↓=hidden left↑=seen left↓=hidden:recToggle");
}

TEST_F(LocationPicker, IgnoresKeysInjectedClicksAndReleases) {
    EXPECT_EQ(feed("left↑ A↓ ~left↓@3,3"), "left↑=seen A↓=seen ~left↓@3,3=seen");
    EXPECT_EQ(toolSettings.fixedX.load(), 5);
    EXPECT_TRUE(capture.pickingLocation.load());
}

}  // namespace
}  // namespace ravelin::test
