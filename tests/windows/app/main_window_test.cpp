#include "app/main_window_win32.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "app/windows_win32.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::eventually;
using test::hasFocus;
using test::TestWindow;

constexpr DWORD framed = WS_OVERLAPPEDWINDOW;

class MainWindow : public ::testing::Test {
  protected:
    void start(const MainWindowStart& how) {
        window_.call([&] {
            startMainWindow(window_.handle(), how,
                            {.store = [this](const WindowPlacement& p) { stored_.push_back(p); },
                             .sessionEnds = [this] { told_.push_back("session ends"); },
                             .sleepBegins = [this] { told_.push_back("sleep begins"); }});
        });
    }
    // The end of a move or size by the user.
    void endMove() { SendMessageW(window_.handle(), WM_EXITSIZEMOVE, 0, 0); }

    static WindowPlacement saved(std::int32_t x, std::int32_t y, std::int32_t w, std::int32_t h) {
        return {.x = x, .y = y, .width = w, .height = h, .saved = true};
    }

    std::vector<WindowPlacement> stored_;
    std::vector<std::string> told_;
    TestWindow window_{L"Main", {100, 100, 500, 400}, framed};
};

TEST_F(MainWindow, GoesWhereItWasAndComesToTheForeground) {
    start({.placement = saved(220, 130, 640, 480)});
    EXPECT_EQ(windowRectangle(window_.handle()), (Rect{220, 130, 860, 610}));
    EXPECT_TRUE(hasFocus(window_.handle()));
    EXPECT_TRUE(stored_.empty());
}

TEST_F(MainWindow, KeepsItsPlaceWhenNoneWasSaved) {
    WindowPlacement never = saved(220, 130, 640, 480);
    never.saved = false;
    start({.placement = never});
    EXPECT_EQ(windowRectangle(window_.handle()), (Rect{100, 100, 500, 400}));
}

TEST_F(MainWindow, KeepsItsPlaceWhenTheSavedOneIsOnNoMonitor) {
    start({.placement = saved(-20000, 130, 640, 480)});
    EXPECT_EQ(windowRectangle(window_.handle()), (Rect{100, 100, 500, 400}));
}

TEST_F(MainWindow, IsNoLargerThanTheWorkArea) {
    const auto monitor =
        describeMonitor(MonitorFromWindow(window_.handle(), MONITOR_DEFAULTTONEAREST));
    start({.placement = saved(10, 20, 20000, 20000)});
    const auto rectangle = windowRectangle(window_.handle());
    EXPECT_EQ(rectangle->left, 10);
    EXPECT_EQ(rectangle->top, 20);
    EXPECT_EQ(rectangle->width(), monitor->workArea.width());
    EXPECT_EQ(rectangle->height(), monitor->workArea.height());
}

TEST_F(MainWindow, IsMaximisedAsItWasAndRemembersItsNormalPlace) {
    WindowPlacement placement = saved(220, 130, 640, 480);
    placement.maximized = true;
    start({.placement = placement});
    EXPECT_NE(IsZoomed(window_.handle()), 0);
    endMove();
    EXPECT_EQ(stored_, std::vector{placement});
}

TEST_F(MainWindow, StartsMinimisedInsteadOfMaximised) {
    WindowPlacement placement = saved(220, 130, 640, 480);
    placement.maximized = true;
    start({.placement = placement, .startMinimized = true});
    EXPECT_NE(IsIconic(window_.handle()), 0);
    EXPECT_FALSE(hasFocus(window_.handle()));
    endMove();
    ASSERT_EQ(stored_.size(), 1U);
    EXPECT_EQ(stored_[0], saved(220, 130, 640, 480));
}

TEST_F(MainWindow, StaysOnTopWhenTheSettingsSaySo) {
    start({.alwaysOnTop = true});
    EXPECT_NE(GetWindowLongW(window_.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(MainWindow, IsNotOnTopOtherwise) {
    start({});
    EXPECT_EQ(GetWindowLongW(window_.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(MainWindow, StoresItsPlacementAtTheEndOfEveryMoveOrSize) {
    start({});
    SetWindowPos(window_.handle(), nullptr, 150, 160, 500, 300, SWP_NOZORDER);
    EXPECT_TRUE(stored_.empty());
    endMove();
    SetWindowPos(window_.handle(), nullptr, 250, 260, 510, 310, SWP_NOZORDER);
    endMove();
    EXPECT_EQ(stored_, (std::vector{saved(150, 160, 500, 300), saved(250, 260, 510, 310)}));
}

TEST_F(MainWindow, StoresItsPlacementWhenItIsDestroyed) {
    start({});
    SetWindowPos(window_.handle(), nullptr, 150, 160, 500, 300, SWP_NOZORDER);
    window_.destroy();
    EXPECT_EQ(stored_, (std::vector{saved(150, 160, 500, 300)}));
}

TEST_F(MainWindow, StoresItsPlacementAndTellsThatTheSessionEnds) {
    start({});
    SendMessageW(window_.handle(), WM_QUERYENDSESSION, 0, 0);
    SendMessageW(window_.handle(), WM_ENDSESSION, FALSE, 0);  // somebody refused
    EXPECT_TRUE(stored_.empty());
    EXPECT_TRUE(told_.empty());
    SendMessageW(window_.handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(stored_.size(), 1U);
    EXPECT_EQ(told_, std::vector<std::string>{"session ends"});
}

TEST_F(MainWindow, TellsThatSleepBegins) {
    start({});
    SendMessageW(window_.handle(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    EXPECT_TRUE(told_.empty());
    SendMessageW(window_.handle(), WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    EXPECT_EQ(told_, std::vector<std::string>{"sleep begins"});
}

TEST_F(MainWindow, HandsEveryMessageOnToTheWindowItself) {
    start({});
    endMove();
    window_.destroy();
    EXPECT_TRUE(window_.received(WM_EXITSIZEMOVE));
    EXPECT_TRUE(window_.received(WM_DESTROY));
    EXPECT_TRUE(window_.received(WM_NCDESTROY));
}

TEST_F(MainWindow, LivesOnWhenItsPlacementCannotBeStored) {
    window_.call([&] {
        startMainWindow(
            window_.handle(), {},
            {.store = [](const WindowPlacement&) { throw std::runtime_error("disk full"); },
             .sessionEnds = {},
             .sleepBegins = {}});
    });
    endMove();
    EXPECT_TRUE(window_.received(WM_EXITSIZEMOVE));
    EXPECT_NE(IsWindow(window_.handle()), 0);
}

TEST(MissingMainWindow, IsIgnored) {
    startMainWindow(
        nullptr, {.alwaysOnTop = true},
        {.store = [](const WindowPlacement&) { FAIL(); }, .sessionEnds = {}, .sleepBegins = {}});
}

}  // namespace
}  // namespace ravelin
