// For every scenario that rates as danger: its pattern, and the nearest patterns that are not it.
#include <gtest/gtest.h>

#include <string>

#include "key_script.h"

namespace {

using scanner_test::expectFindings;

TEST(RunCommand, IsTheRunBoxThenTextThenEnter) {
    expectFindings("Win+R a Enter", "run-command@0 start-launch@0");
    expectFindings("Win+R Shift+a Left Enter", "run-command@0 start-launch@0");
    expectFindings("Win+R Enter a Enter", "run-command@0 start-launch@0");
    expectFindings("Win+R@0 a@1000 Enter@1000000", "run-command@0 start-launch@0");
    expectFindings(">Win@1 >R@2 <Win@3 a@4 Enter@5", "start-launch@1 run-command@2");
}

TEST(RunCommand, NeedsTextAndAPlainEnterAfterTheRunBox) {
    expectFindings("Win+R Enter", "system-keys@0");
    expectFindings("Win+R a", "system-keys@0");
    expectFindings("a Win+R Enter", "system-keys@1");
    expectFindings("Win+R Win+a Enter", "system-keys@0");
    expectFindings("Win+R Ctrl+a Enter", "system-keys@0");
    expectFindings("Win+R a Shift+Enter", "system-keys@0");
    expectFindings("Win+R a Ctrl+Enter", "system-keys@0");
    expectFindings("Win+R a Alt+Enter", "system-keys@0");
}

TEST(RunCommand, NeedsWinAndRAlone) {
    expectFindings("R a Enter", "");
    expectFindings("Ctrl+R a Enter", "");
    expectFindings("Shift+Win+R a Enter", "system-keys@0");
    expectFindings("Ctrl+Win+R a Enter", "system-keys@0");
    // The Windows key goes down first and alone, so the Start menu is searched all the same.
    expectFindings("Win+Shift+R a Enter", "start-launch@0");
    expectFindings("Win+E a Enter", "start-launch@0");
}

TEST(AdminApprove, IsTheRunBoxOrStartSearchThenAnApproval) {
    expectFindings("Win+R Ctrl+Shift+Enter", "admin-approve@0 system-keys@0");
    expectFindings("Win+R Shift+Ctrl+Enter", "admin-approve@0 system-keys@0");
    expectFindings("Win+R a b Alt+Y", "admin-approve@0 system-keys@0");
    expectFindings("Win a Ctrl+Shift+Enter", "admin-approve@0");
    expectFindings("Win a Alt+Y", "admin-approve@0");
}

TEST(AdminApprove, PrefersTheRunBoxToAnEarlierStartSearch) {
    expectFindings("Win a Win+R@5 Alt+Y", "admin-approve@5 system-keys@5");
    expectFindings("Win a Win+R@5", "system-keys@5");
    expectFindings("Win@1 a Alt+Y Win+R@5", "admin-approve@1 system-keys@5");
}

TEST(AdminApprove, NeedsExactlyOneOfTheApprovals) {
    expectFindings("Win+R Ctrl+Enter", "system-keys@0");
    expectFindings("Win+R Shift+Enter", "system-keys@0");
    expectFindings("Win+R Ctrl+Alt+Shift+Enter", "system-keys@0");
    expectFindings("Win+R Y", "system-keys@0");
    expectFindings("Win+R Alt+Shift+Y", "system-keys@0");
    expectFindings("Win+R Alt+N", "system-keys@0");
    expectFindings("Alt+Y Win+R", "system-keys@1");
}

TEST(AdminApprove, NeedsTextAfterABareWin) {
    expectFindings("Win Alt+Y", "");
    expectFindings("a Win Ctrl+Shift+Enter", "");
    expectFindings("Ctrl+Win a Alt+Y", "");
    expectFindings("a Alt+Y", "");
}

TEST(PowerMenu, IsWinXThenAnItem) {
    for (const std::string item : {"I", "A", "T", "G"}) {
        expectFindings("Win+X " + item, "power-menu@0 system-keys@0");
    }
    expectFindings("Win+X U G", "power-menu@0 system-keys@0");
}

TEST(PowerMenu, NeedsAPlainItemKeyAfterWinX) {
    expectFindings("Win+X", "system-keys@0");
    expectFindings("Win+X U", "system-keys@0");
    expectFindings("Win+X Win+I", "system-keys@0");
    expectFindings("Win+X Shift+I", "system-keys@0");
    expectFindings("I Win+X", "system-keys@1");
    expectFindings("Win+Ctrl+X I", "system-keys@0");
    expectFindings("X I", "");
    expectFindings("Win X I", "");
}

TEST(StartLaunch, IsABareWinThenTextThenEnter) {
    expectFindings("Win a Enter", "start-launch@0");
    expectFindings("Win Shift+a Left Enter", "start-launch@0");
    expectFindings("Win Enter a Enter", "start-launch@0");
    expectFindings(">Win@3 <Win@4 Space@5 Enter@6", "start-launch@3");
}

TEST(StartLaunch, NeedsTextAndAPlainEnterAfterABareWin) {
    expectFindings("Win Enter", "");
    expectFindings("Win a", "");
    expectFindings("a Win Enter", "");
    expectFindings("Win Left Enter", "");
    expectFindings("Win a Ctrl+Enter", "");
    expectFindings("Ctrl+Win a Enter", "");
    expectFindings("Alt+Win a Enter", "");
    expectFindings("Shift+Win a Enter", "");
}

TEST(CopyPasteSend, IsCopyOrCutThenPasteThenEnter) {
    expectFindings("Ctrl+C Ctrl+V Enter", "copy-paste-send@0");
    expectFindings("Ctrl+X Ctrl+V Enter", "copy-paste-send@0");
    expectFindings("Ctrl+C Left Ctrl+V a Enter", "copy-paste-send@0");
    expectFindings(">Ctrl C V <Ctrl Enter", "copy-paste-send@1");
}

TEST(CopyPasteSend, NeedsAPlainEnterAtTheEnd) {
    expectFindings("Ctrl+C Ctrl+V", "copy-paste@0");
    expectFindings("Ctrl+C Enter Ctrl+V", "copy-paste@0");
    expectFindings("Ctrl+C Ctrl+V Ctrl+Enter", "copy-paste@0");
    expectFindings(">Ctrl C V Enter <Ctrl", "copy-paste@1");
    expectFindings("Ctrl+C Enter", "");
}

TEST(CopyPasteSend, ReleasingOneSideOfCtrlEndsTheChord) {
    const ravelin::EventList events = {
        scanner_test::keyEvent(0, 162, true), scanner_test::keyEvent(0, 163, true),
        scanner_test::keyEvent(1, 'C', true), scanner_test::keyEvent(1, 162, false),
        scanner_test::keyEvent(2, 'V', true), scanner_test::keyEvent(3, 13, true)};
    EXPECT_EQ(scanner_test::findings(events), "");
}

TEST(ScreenshotPaste, IsAScreenshotThenPaste) {
    expectFindings("PrtSc Ctrl+V", "screenshot-paste@0");
    expectFindings("Alt+PrtSc Ctrl+V", "screenshot-paste@0");
    expectFindings("Win+Shift+S Ctrl+V", "screenshot-paste@0 system-keys@0");
    expectFindings("Shift+Win+S a Ctrl+V", "screenshot-paste@0 system-keys@0");
}

TEST(ScreenshotPaste, NeedsExactlyOneOfTheScreenshotChords) {
    expectFindings("Ctrl+PrtSc Ctrl+V", "");
    expectFindings("Shift+PrtSc Ctrl+V", "");
    expectFindings("Win+PrtSc Ctrl+V", "system-keys@0");
    expectFindings("Win+S Ctrl+V", "system-keys@0");
    expectFindings("Shift+S Ctrl+V", "");
    expectFindings("S Ctrl+V", "");
}

TEST(ScreenshotPaste, NeedsThePasteAfterTheScreenshot) {
    expectFindings("PrtSc", "");
    expectFindings("Ctrl+V PrtSc", "");
    expectFindings("PrtSc V", "");
    expectFindings("PrtSc Ctrl+Shift+V", "");
}

TEST(SelectAllDelete, IsSelectAllThenDeleteOrBackspace) {
    expectFindings("Ctrl+A Delete", "select-all-delete@0");
    expectFindings("Ctrl+A Backspace", "select-all-delete@0");
    expectFindings("Ctrl+A Left Delete", "select-all-delete@0");
}

TEST(SelectAllDelete, NeedsAPlainDeleteAfterCtrlA) {
    expectFindings("Ctrl+A", "");
    expectFindings("Delete Ctrl+A", "");
    expectFindings("A Delete", "");
    expectFindings("Ctrl+Shift+A Delete", "");
    expectFindings("Ctrl+A a", "");
    expectFindings("Ctrl+A Ctrl+Backspace", "");
    expectFindings("Ctrl+A Shift+Delete", "permanent-delete@1");
}

TEST(PermanentDelete, IsShiftDelete) {
    expectFindings("Shift+Delete", "permanent-delete@0");
    expectFindings("a Shift+Delete@3 Shift+Delete", "permanent-delete@3");
}

TEST(PermanentDelete, NeedsShiftHeldAlone) {
    expectFindings("Delete", "");
    expectFindings("Shift Delete", "");
    expectFindings("Shift+Backspace", "");
    expectFindings("Ctrl+Shift+Delete", "");
    expectFindings("Alt+Shift+Delete", "");
    expectFindings("Win+Shift+Delete", "system-keys@0");
}

TEST(WipeAndSave, IsSelectAllThenAReplacementThenSave) {
    expectFindings("Ctrl+A a Ctrl+S", "wipe-and-save@0");
    expectFindings("Ctrl+A Shift+a b Ctrl+S", "wipe-and-save@0");
    expectFindings("Ctrl+A Delete Ctrl+S", "select-all-delete@0 wipe-and-save@0");
    expectFindings("Ctrl+A Backspace Ctrl+S", "select-all-delete@0 wipe-and-save@0");
}

TEST(WipeAndSave, NeedsTheReplacementBetweenSelectAllAndSave) {
    expectFindings("Ctrl+A Ctrl+S", "");
    expectFindings("a Ctrl+A Ctrl+S", "");
    expectFindings("Ctrl+S Ctrl+A a", "");
    expectFindings("Ctrl+A Enter Ctrl+S", "");
    expectFindings("Ctrl+A Ctrl+V Ctrl+S", "");
    expectFindings("Ctrl+A a S", "");
    expectFindings("Ctrl+A a Ctrl+Shift+S", "");
    expectFindings("A a Ctrl+S", "");
}

}  // namespace
