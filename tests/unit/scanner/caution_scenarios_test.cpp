// For every scenario that rates as caution: its pattern, and the nearest patterns that are not it.
#include <gtest/gtest.h>

#include <string>

#include "key_script.h"

namespace {

using scanner_test::expectFindings;

TEST(OpenAddress, IsTheAddressBarThenTextThenEnter) {
    expectFindings("Ctrl+L a Enter", "open-address@0");
    expectFindings("F6 a Enter", "open-address@0");
    expectFindings("b F6 F6 Shift+a Left Enter", "open-address@1");
}

TEST(OpenAddress, NeedsTextAndAPlainEnterAfterTheAddressBar) {
    expectFindings("Ctrl+L Enter", "");
    expectFindings("F6 Enter", "");
    expectFindings("a F6 Enter", "");
    expectFindings("Ctrl+L a Ctrl+Enter", "");
    expectFindings("Ctrl+L Ctrl+a Enter", "");
    expectFindings("L a Enter", "");
    expectFindings("Ctrl+Shift+L a Enter", "");
    expectFindings("Ctrl+F6 a Enter", "");
    expectFindings("Shift+F6 a Enter", "");
    expectFindings("F5 a Enter", "");
}

TEST(CopyPaste, IsCopyOrCutThenPaste) {
    expectFindings("Ctrl+C Ctrl+V", "copy-paste@0");
    expectFindings("Ctrl+X a Ctrl+V", "copy-paste@0");
    expectFindings("Ctrl+V Ctrl+X Ctrl+V", "copy-paste@1");
}

TEST(CopyPaste, NeedsBothChordsInThisOrder) {
    expectFindings("Ctrl+C", "");
    expectFindings("Ctrl+V Ctrl+C", "");
    expectFindings("Ctrl+C V", "");
    expectFindings("C Ctrl+V", "");
    expectFindings("Ctrl+C Ctrl+Alt+V", "");
    expectFindings("Ctrl+Shift+C Ctrl+V", "");
}

const std::string burst = "a@1 b@1 c@1 d@2 e@2 f@3 g@4 h@6 ";

TEST(TypeAndSend, IsATypingBurstThenEnterWithinTenSecondsOfItsStart) {
    expectFindings(burst + "Enter@6", "type-and-send@1");
    expectFindings(burst + "Enter@11", "type-and-send@1");
    expectFindings(burst + "Shift+Enter@7 i@8 Enter@9", "type-and-send@1");
}

TEST(TypeAndSend, IsNotFoundWhenEnterComesLater) {
    expectFindings(burst + "Enter@11.001", "");
    expectFindings(burst, "");
}

TEST(TypeAndSend, NeedsAPlainEnter) {
    expectFindings(burst + "Shift+Enter@7", "");
    expectFindings(burst + "Ctrl+Enter@7", "");
    expectFindings(burst + "Tab@7", "");
}

TEST(TypeAndSend, NeedsEnterAfterTheLastKeyOfTheBurst) {
    expectFindings("a@1 b@1 c@1 d@1 Enter@1 e@1 f@1 g@1 h@1", "");
    expectFindings("Enter@1 a@1 b@1 c@1 d@1 e@1 f@1 g@1 h@1", "");
}

TEST(TypeAndSend, NeedsEightKeysWithinFiveSeconds) {
    expectFindings("a@1 b@1 c@1 d@2 e@2 f@3 g@4 Enter@5", "");
    expectFindings("a@1 b@1 c@1 d@2 e@2 f@3 g@4 h@6.001 Enter@7", "");
}

TEST(TypeAndSend, GivesUpAtTheFirstPressOfAnyKeyThatIsTooLate) {
    expectFindings(burst + "Left@11 Enter@9", "type-and-send@1");
    expectFindings(burst + "Left@11.5 Enter@9", "");
    expectFindings(burst + "Shift@11.5 Enter@9", "");
}

TEST(TypeAndSend, TriesTheFirstBurstOnly) {
    expectFindings(burst + "Left@30 a@51 b@51 c@51 d@51 e@51 f@51 g@51 h@51 Enter@52", "");
    expectFindings(burst + "Enter@7 a@51 b@51 c@51 d@51 e@51 f@51 g@51 h@51 Enter@52",
                   "type-and-send@1");
}

TEST(CloseWindows, IsTwoClosingChordsWithinThirtySeconds) {
    expectFindings("Alt+F4@0 Alt+F4@30", "close-windows@0");
    expectFindings("Ctrl+W@1 Ctrl+W@2", "close-windows@1");
    expectFindings("Ctrl+W@1 a@2 Alt+F4@9", "close-windows@1");
    expectFindings("Alt+F4@0 Alt+F4@31 Ctrl+W@60", "close-windows@31");
    expectFindings(">Alt F4 F4 <Alt", "close-windows@1");
}

TEST(CloseWindows, IsNotFoundForOneChordOrChordsFurtherApart) {
    expectFindings("Alt+F4", "");
    expectFindings("Alt+F4@0 Alt+F4@30.5", "");
    expectFindings("F4 F4", "");
    expectFindings("W W", "");
    expectFindings("Ctrl+F4 Ctrl+F4", "");
    expectFindings("Ctrl+Shift+W Ctrl+Shift+W", "");
    expectFindings("Alt+Shift+F4 Alt+Shift+F4", "");
}

TEST(TaskManager, IsItsShortcutOrTheSecurityScreen) {
    expectFindings("Ctrl+Shift+Esc", "task-manager@0");
    expectFindings("Shift+Ctrl+Esc", "task-manager@0");
    expectFindings("a Ctrl+Alt+Delete@4.5 Ctrl+Shift+Esc", "task-manager@4.5");
    expectFindings("Alt+Ctrl+Delete", "task-manager@0");
}

TEST(TaskManager, NeedsExactlyTheseChords) {
    expectFindings("Ctrl+Esc", "");
    expectFindings("Shift+Esc", "");
    expectFindings("Ctrl+Alt+Esc", "");
    expectFindings("Ctrl+Alt+Shift+Esc", "");
    expectFindings("Ctrl+Delete", "");
    expectFindings("Alt+Delete", "");
    expectFindings("Ctrl+Alt+Shift+Delete", "");
    expectFindings("Ctrl+Alt+Backspace", "");
}

TEST(SwitchWindows, IsThreeTimesAltTabWithinTenSeconds) {
    expectFindings("Alt+Tab@0 Alt+Tab@4 Alt+Tab@10", "switch-windows@0");
    expectFindings(">Alt Tab Tab Tab <Alt", "switch-windows@1");
    expectFindings("Alt+Tab@0 Alt+Tab@20 Alt+Tab@25 Alt+Tab@30", "switch-windows@20");
}

TEST(SwitchWindows, IsNotFoundForFewerChordsOrMoreTime) {
    expectFindings("Alt+Tab@0 Alt+Tab@1", "");
    expectFindings("Alt+Tab@0 Alt+Tab@4 Alt+Tab@11", "");
    expectFindings("Tab Tab Tab", "");
    expectFindings("Ctrl+Tab Ctrl+Tab Ctrl+Tab", "");
    expectFindings("Alt+Shift+Tab Alt+Shift+Tab Alt+Shift+Tab", "");
}

TEST(SystemKeys, IsAnyKeyButAModifierWhileWinIsHeld) {
    expectFindings(">Win@1 E@4", "system-keys@4");
    expectFindings("Win+Ctrl+Left", "system-keys@0");
    expectFindings("Win+Alt+Shift+F4 Win+E", "system-keys@0");
}

TEST(SystemKeys, IsNotFoundForModifiersAloneOrWithoutWin) {
    expectFindings("Win", "");
    expectFindings("Win+Shift", "");
    expectFindings("Win+Ctrl+Alt", "");
    expectFindings("E", "");
    expectFindings("Win E", "");
    expectFindings("Ctrl+Alt+E", "");
}

TEST(SystemKeys, CountsKeyCodesThatNoKeyboardHas) {
    for (const std::uint32_t vk : {0u, 255u, 256u, 65536u + 91u, 4294967295u}) {
        const ravelin::EventList events = {scanner_test::keyEvent(1, 91, true),
                                           scanner_test::keyEvent(2, vk, true)};
        EXPECT_EQ(scanner_test::findings(events), "system-keys@2") << vk;
    }
}

TEST(SystemKeys, EndsWhenEitherWindowsKeyIsReleased) {
    const ravelin::EventList events = {
        scanner_test::keyEvent(0, 91, true), scanner_test::keyEvent(1, 92, true),
        scanner_test::keyEvent(2, 92, false), scanner_test::keyEvent(3, 'E', true)};
    EXPECT_EQ(scanner_test::findings(events), "");
}

}  // namespace
