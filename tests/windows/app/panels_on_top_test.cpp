// Panel windows of other processes beside a main window that is kept on top.
#include "app/panels_on_top_win32.h"

#include <gtest/gtest.h>

#include "app/main_window_win32.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "support/utf.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::eventually;
using test::TestWindow;

constexpr wchar_t panelTitle[] = L"Ravelin - Panel";
constexpr wchar_t otherPanelTitle[] = L"Ravelin - Other";

HWND find(const wchar_t* title) {
    return FindWindowW(nullptr, title);
}

bool isAbove(HWND upper, HWND lower) {
    for (HWND next = GetWindow(upper, GW_HWNDNEXT); next != nullptr;
         next = GetWindow(next, GW_HWNDNEXT))
        if (next == lower) return true;
    return false;
}

bool comesAbove(HWND upper, HWND lower) {
    return eventually([=] { return isAbove(upper, lower); });
}

// A window of another process begins on top; this one among the others.
HWND letGo(HWND window) {
    setAlwaysOnTop(window, false);
    EXPECT_FALSE(isAlwaysOnTop(window));
    return window;
}

class PanelsOnTop : public ::testing::Test {
  protected:
    void startMain(bool onTop) {
        main_.call([&] { startMainWindow(main_.handle(), {.alwaysOnTop = onTop}, {}); });
    }
    void setting(bool on) {
        main_.call([&] { setAlwaysOnTop(main_.handle(), on); });
    }
    static bool comesOnTop(HWND window, bool on = true) {
        return eventually([=] { return isAlwaysOnTop(window) == on; });
    }

    TestWindow main_{widen(mainWindowTitle)};
};

TEST_F(PanelsOnTop, FollowTheSettingInBothDirections) {
    const ChildProgram process(test::ownPath(), panelTitle);
    const HWND panel = letGo(find(panelTitle));
    startMain(false);
    setting(true);
    EXPECT_TRUE(comesOnTop(panel));
    EXPECT_TRUE(comesAbove(panel, main_.handle()));
    setting(false);
    EXPECT_TRUE(comesOnTop(panel, false));
    setting(true);
    EXPECT_TRUE(comesOnTop(panel));
}

TEST_F(PanelsOnTop, FollowAMainWindowThatStartsOnTop) {
    const ChildProgram process(test::ownPath(), panelTitle);
    const HWND panel = letGo(find(panelTitle));
    startMain(true);
    EXPECT_TRUE(comesOnTop(panel));
}

TEST_F(PanelsOnTop, StayAboveTheMainWindowWhenItIsBroughtToTheForeground) {
    const ChildProgram first(test::ownPath(), panelTitle);
    const ChildProgram second(test::ownPath(), otherPanelTitle);
    startMain(true);
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(comesAbove(find(panelTitle), main_.handle()));
        EXPECT_TRUE(comesAbove(find(otherPanelTitle), main_.handle()));
        main_.call([&] { bringToForeground(main_.handle()); });
    }
}

TEST_F(PanelsOnTop, AreLeftAloneByAnOrdinaryMainWindow) {
    const ChildProgram process(test::ownPath(), panelTitle);
    const HWND panel = letGo(find(panelTitle));
    startMain(false);
    main_.call(
        [&] { SetWindowPos(main_.handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); });
    EXPECT_TRUE(isAbove(main_.handle(), panel));
    EXPECT_FALSE(isAlwaysOnTop(panel));
}

TEST_F(PanelsOnTop, AreWindowsOfThisExecutableWithAPanelsTitleOnly) {
    const test::ForeignProgram foreign;
    const ChildProgram other(foreign.path(), panelTitle);
    const HWND notOurs = letGo(find(panelTitle));
    const ChildProgram process(test::ownPath(), L"A panel");
    const HWND titledOtherwise = letGo(find(L"A panel"));
    const ChildProgram last(test::ownPath(), otherPanelTitle);
    const HWND panel = letGo(find(otherPanelTitle));
    startMain(true);
    ASSERT_TRUE(comesOnTop(panel));
    EXPECT_FALSE(isAlwaysOnTop(notOurs));
    EXPECT_FALSE(isAlwaysOnTop(titledOtherwise));
}

TEST_F(PanelsOnTop, OpenOnTopWhenTheMainWindowIs) {
    startMain(true);
    const TestWindow panel(panelTitle);
    ASSERT_FALSE(isAlwaysOnTop(panel.handle()));
    panel.call([&] { followMainWindow(panel.handle()); });
    EXPECT_TRUE(isAlwaysOnTop(panel.handle()));
}

TEST_F(PanelsOnTop, OpenAmongTheOthersWhenTheMainWindowIsThere) {
    startMain(false);
    const TestWindow panel(panelTitle);
    panel.call([&] { followMainWindow(panel.handle()); });
    EXPECT_FALSE(isAlwaysOnTop(panel.handle()));
}

TEST(PanelsOnTopAlone, OpenAmongTheOthersWithoutAMainWindow) {
    const TestWindow panel(panelTitle);
    panel.call([&] { followMainWindow(panel.handle()); });
    EXPECT_FALSE(isAlwaysOnTop(panel.handle()));
}

}  // namespace
}  // namespace ravelin
