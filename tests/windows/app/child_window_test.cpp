// The frameless window of a panel, dragged with the mouse.
#include "app/child_window_win32.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "app/environment_win32.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "support/utf.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/real_input.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::eventually;
using test::realInput;
using test::TestWindow;

constexpr DWORD frameParts =
    WS_DLGFRAME | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr RECT panelPlace{700, 300, 1150, 700};

void moveTo(int x, int y) {
    realInput("mousemove " + std::to_string(x) + " " + std::to_string(y));
}

bool buttonIsHeld() {
    return GetAsyncKeyState(VK_LBUTTON) < 0;
}

class PanelWindow : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!test::hasRealInput()) GTEST_SKIP() << "no real input on this system";
    }
    void TearDown() override {
        if (!test::hasRealInput()) return;
        if (buttonIsHeld()) realInput("mouseup 1");
        EXPECT_TRUE(eventually([] { return !buttonIsHeld(); }));
        if (shaped_) panel_.call([this] { shaped_.reset(); });
    }

    void shape(std::optional<platform::Point> corner = std::nullopt) {
        panel_.call([&] {
            shaped_.emplace(
                panel_.handle(), corner,
                PanelWindowEvents{.hover = [this](bool over) { log_.add(over ? "over" : "left"); },
                                  .dockBack = [this] { log_.add("dock"); }});
        });
    }

    // Presses the button at (720, 310) and begins a drag there.
    void grab() {
        shape();
        realInput("mousemove 720 310 mousedown 1");
        ASSERT_TRUE(panel_.awaitMessage(WM_LBUTTONDOWN));
        panel_.call([this] { shaped_->beginDrag(); });
        panel_.messages.clear();
    }

    // Also waits until the window's thread has done with the move: the display moves it a moment
    // after its rectangle is new, and input that is made in between lands wrong.
    bool comesTo(LONG left, LONG top) {
        const bool there = eventually([=, this] {
            const auto now = windowRectangle(panel_.handle());
            return now && now->left == left && now->top == top;
        });
        panel_.call([] {});
        return there;
    }
    // Moves the cursor over the panel and waits until the panel has been told.
    bool movesOverPanel(int x, int y) {
        POINT inside{x, y};
        ScreenToClient(panel_.handle(), &inside);
        moveTo(x, y);
        return panel_.messages.awaitOne([=](const test::SeenMessage& seen) {
            return seen.message == WM_MOUSEMOVE && seen.lParam == MAKELPARAM(inside.x, inside.y);
        });
    }
    bool tells(const std::vector<std::string>& events) {
        return log_.await([&](const auto& seen) { return seen == events; });
    }

    Rect rectangle() const { return *windowRectangle(panel_.handle()); }
    DWORD style() const {
        return static_cast<DWORD>(GetWindowLongPtrW(panel_.handle(), GWL_STYLE));
    }

    test::EventLog<std::string> log_;
    TestWindow main_{widen(mainWindowTitle), {100, 100, 500, 500}};
    TestWindow panel_{L"Ravelin - Panel", panelPlace, WS_OVERLAPPEDWINDOW};
    std::optional<ChildWindow> shaped_;
};

TEST_F(PanelWindow, LosesItsFrameAndStandsAtItsCornerInItsSize) {
    shape(platform::Point{350, 280});
    EXPECT_EQ(rectangle(), (Rect{350, 280, 350 + childWidth, 280 + childHeight}));
    EXPECT_EQ(style() & frameParts, 0U);
    EXPECT_EQ(style() & (WS_POPUP | WS_BORDER), static_cast<DWORD>(WS_POPUP | WS_BORDER));
}

TEST_F(PanelWindow, StaysWhereItIsWithoutACorner) {
    shape();
    EXPECT_EQ(rectangle(), (Rect{700, 300, 1150, 700}));
    EXPECT_EQ(style() & frameParts, 0U);
}

TEST_F(PanelWindow, IsFramelessAroundContentOfAnySize) {
    shape();
    panel_.call([&] { shaped_->setContentSize(333, 222); });
    const double scale = windowScale(panel_.handle());
    RECT content{};
    GetClientRect(panel_.handle(), &content);
    EXPECT_EQ(content.right, std::lround(333 * scale));
    EXPECT_EQ(content.bottom, std::lround(222 * scale));
    EXPECT_EQ(style() & frameParts, 0U);
    EXPECT_EQ(rectangle().left, 700);
}

TEST_F(PanelWindow, FollowsTheCursorInItsSizeAndStaysWhereItIsDropped) {
    grab();
    moveTo(760, 420);
    EXPECT_TRUE(comesTo(740, 410));
    moveTo(710, 305);
    EXPECT_TRUE(comesTo(690, 295));
    realInput("mouseup 1");
    EXPECT_TRUE(eventually([this] {
        HWND holder = panel_.handle();
        panel_.call([&] { holder = GetCapture(); });
        return holder == nullptr;
    }));
    ASSERT_TRUE(movesOverPanel(800, 400));
    EXPECT_EQ(rectangle(), (Rect{690, 295, 1140, 695}));
    EXPECT_TRUE(log_.all().empty());
}

TEST_F(PanelWindow, KeepsTheMessagesOfTheDragToItself) {
    grab();
    moveTo(760, 420);
    ASSERT_TRUE(comesTo(740, 410));
    realInput("mouseup 1");
    ASSERT_TRUE(panel_.awaitMessage(WM_CAPTURECHANGED));
    EXPECT_FALSE(panel_.received(WM_LBUTTONUP));
    realInput("click 1");
    EXPECT_TRUE(panel_.awaitMessage(WM_LBUTTONUP));
}

TEST_F(PanelWindow, TellsWhenItComesOverTheMainWindowAndLeavesIt) {
    grab();
    moveTo(300, 300);
    EXPECT_TRUE(tells({"over"}));
    moveTo(320, 310);
    ASSERT_TRUE(comesTo(300, 300));
    moveTo(600, 300);
    EXPECT_TRUE(tells({"over", "left"}));
}

TEST_F(PanelWindow, DocksWhenItIsDroppedOnTheMainWindow) {
    grab();
    moveTo(300, 300);
    ASSERT_TRUE(tells({"over"}));
    realInput("mouseup 1");
    EXPECT_TRUE(tells({"over", "left", "dock"}));
}

TEST_F(PanelWindow, NeverDocksWhenTheMouseIsTakenAway) {
    grab();
    moveTo(300, 300);
    ASSERT_TRUE(tells({"over"}));
    panel_.call([] { ReleaseCapture(); });
    EXPECT_TRUE(tells({"over", "left"}));
    const Rect place = rectangle();
    realInput("mousemove 600 600 mouseup 1");
    ASSERT_TRUE(eventually([] { return !buttonIsHeld(); }));
    panel_.call([] {});
    EXPECT_EQ(rectangle(), place);
    EXPECT_EQ(log_.all().size(), 2U);
}

TEST_F(PanelWindow, FollowsTheMainWindowsPlaceDuringTheDrag) {
    grab();
    main_.call([this] { MoveWindow(main_.handle(), 100, 600, 400, 300, FALSE); });
    moveTo(300, 300);
    ASSERT_TRUE(comesTo(280, 290));
    moveTo(300, 700);
    EXPECT_TRUE(tells({"over"}));
}

TEST_F(PanelWindow, IsOnlyMovedWhenThereIsNoMainWindow) {
    main_.destroy();
    grab();
    moveTo(300, 300);
    ASSERT_TRUE(comesTo(280, 290));
    realInput("mouseup 1");
    ASSERT_TRUE(panel_.awaitMessage(WM_CAPTURECHANGED));
    EXPECT_TRUE(log_.all().empty());
}

TEST_F(PanelWindow, DoesNotHangOnTheCursorAfterAQuickClick) {
    shape();
    realInput("mousemove 720 310 click 1");
    ASSERT_TRUE(panel_.awaitMessage(WM_LBUTTONUP));
    panel_.call([this] { shaped_->beginDrag(); });
    panel_.messages.clear();
    ASSERT_TRUE(movesOverPanel(730, 320));
    EXPECT_EQ(rectangle().left, 700);
}

TEST_F(PanelWindow, OutlivesAFailureToTellTheMainWindow) {
    panel_.call([&] {
        shaped_.emplace(
            panel_.handle(), std::nullopt,
            PanelWindowEvents{.hover = [](bool) { throw std::bad_alloc(); }, .dockBack = [] {}});
    });
    realInput("mousemove 720 310 mousedown 1");
    ASSERT_TRUE(panel_.awaitMessage(WM_LBUTTONDOWN));
    panel_.call([this] { shaped_->beginDrag(); });
    moveTo(300, 300);
    EXPECT_TRUE(comesTo(280, 290));
}

TEST(MissingPanelWindow, IsIgnored) {
    ChildWindow window(nullptr, platform::Point{1, 2}, {});
    window.setContentSize(100, 100);
    window.beginDrag();
}

}  // namespace
}  // namespace ravelin
