#include "app/window_placement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace ravelin {
namespace {

constexpr Monitor primary{.area = {0, 0, 1920, 1080}, .workArea = {0, 0, 1920, 1040}};
constexpr Monitor leftOfPrimary{.area = {-1280, 100, 0, 1124}, .workArea = {-1280, 130, 0, 1124}};

WindowPlacement saved(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
    return {.x = x, .y = y, .width = width, .height = height, .saved = true};
}

TEST(StartRectangle, IsTheSavedOneWhenItFits) {
    EXPECT_EQ(startRectangle(saved(100, 50, 420, 560), primary), (Rect{100, 50, 520, 610}));
}

TEST(StartRectangle, LeavesTheDefaultPlaceWithoutASavedPosition) {
    WindowPlacement never = saved(100, 50, 420, 560);
    never.saved = false;
    EXPECT_EQ(startRectangle(never, primary), std::nullopt);
}

TEST(StartRectangle, LeavesTheDefaultPlaceWhenTheMonitorIsGone) {
    EXPECT_EQ(startRectangle(saved(-900, 200, 420, 560), std::nullopt), std::nullopt);
}

TEST(StartRectangle, CutsEachSideToTheWorkAreaOnItsOwn) {
    EXPECT_EQ(startRectangle(saved(0, 0, 3000, 560), primary), (Rect{0, 0, 1920, 560}));
    EXPECT_EQ(startRectangle(saved(0, 0, 420, 1041), primary), (Rect{0, 0, 420, 1040}));
    EXPECT_EQ(startRectangle(saved(0, 0, 1920, 1040), primary), (Rect{0, 0, 1920, 1040}));
}

TEST(StartRectangle, KeepsThePlaceEvenWhereTheWindowReachesBeyondTheScreen) {
    EXPECT_EQ(startRectangle(saved(1900, 1000, 420, 560), primary), (Rect{1900, 1000, 2320, 1560}));
}

TEST(StartRectangle, UsesTheSizeOfTheMonitorThatHoldsTheCorner) {
    EXPECT_EQ(startRectangle(saved(-1280, 130, 1900, 1900), leftOfPrimary),
              (Rect{-1280, 130, 0, 1124}));
}

TEST(FromWorkspace, ChangesNothingWhereTheWorkAreaBeginsAtTheMonitorsCorner) {
    EXPECT_EQ(fromWorkspace({10, 20, 430, 580}, primary), (Rect{10, 20, 430, 580}));
}

TEST(FromWorkspace, AddsWhatATaskbarAtTheTopOrLeftTakes) {
    constexpr Monitor taskbars{.area = {0, 0, 800, 600}, .workArea = {60, 40, 800, 600}};
    EXPECT_EQ(fromWorkspace({10, 20, 430, 580}, taskbars), (Rect{70, 60, 490, 620}));
    EXPECT_EQ(fromWorkspace({-1000, 200, -600, 700}, leftOfPrimary), (Rect{-1000, 230, -600, 730}));
}

// A window with a frame around its content, as wide and high as told, that logs what is asked.
struct FakeWindow {
    Rect frame{100, 100, 536, 699};
    std::int32_t frameWidth = 16;
    std::int32_t frameHeight = 39;
    std::int32_t minimumHeight = 0;  // of the whole window
    bool gone = false;
    std::vector<Rect> sizes;  // content sizes asked for, as right and bottom
    std::vector<Rect> moves;  // places asked for, as left and top

    ResizableWindow handle() {
        return {.setContentSize =
                    [this](std::int32_t width, std::int32_t height) {
                        sizes.push_back({0, 0, width, height});
                        frame.right = frame.left + width + frameWidth;
                        frame.bottom = frame.top + std::max(height + frameHeight, minimumHeight);
                    },
                .rectangle = [this] { return gone ? std::nullopt : std::optional(frame); },
                .moveTo =
                    [this](std::int32_t left, std::int32_t top) {
                        moves.push_back({left, top, 0, 0});
                        const Rect old = frame;
                        frame = {left, top, left + old.width(), top + old.height()};
                    }};
    }
};

void resize(FakeWindow& window, std::int32_t width, std::int32_t height,
            const std::optional<Monitor>& monitor = primary) {
    resizeWithinScreen(window.handle(), monitor, 768, width, height);
}

TEST(ResizeWithinScreen, GivesTheSizeAskedForAndLeavesThePlace) {
    FakeWindow window;
    resize(window, 500, 600);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 500, 600}}));
    EXPECT_TRUE(window.moves.empty());
    EXPECT_EQ(window.frame, (Rect{100, 100, 616, 739}));
}

TEST(ResizeWithinScreen, IgnoresASizeBelowOne) {
    FakeWindow window;
    resize(window, 0, 600);
    resize(window, 500, 0);
    resize(window, -3, 600);
    resize(window, 500, -600);
    EXPECT_TRUE(window.sizes.empty());
    EXPECT_TRUE(window.moves.empty());
}

TEST(ResizeWithinScreen, AcceptsTheSmallestSize) {
    FakeWindow window;
    resize(window, 1, 1);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 1, 1}}));
}

TEST(ResizeWithinScreen, ScalesTooTallARequestByTheRoomOverTheWindowsHeight) {
    FakeWindow window;
    // 1040 - 0 - 20 = 1020 available; the window comes out 1539 tall: 1500 * 1020 / 1539 = 994.15.
    resize(window, 500, 1500);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 500, 1500}, {0, 0, 500, 994}}));
    // 994 + 39 tall from 100 reaches below 1040: up so that the bottom meets the work area's.
    EXPECT_EQ(window.moves, (std::vector<Rect>{{100, 7, 0, 0}}));
    EXPECT_EQ(window.frame.bottom, 1040);
}

TEST(ResizeWithinScreen, TakesAWindowExactlyAsTallAsTheRoomAsItIs) {
    FakeWindow window;
    window.frame = {100, 0, 536, 500};
    resize(window, 500, 1020 - window.frameHeight);
    EXPECT_EQ(window.sizes.size(), 1U);
    EXPECT_TRUE(window.moves.empty());
}

TEST(ResizeWithinScreen, ScalesAWindowOnePixelTallerThanTheRoom) {
    FakeWindow window;
    window.frame = {100, 0, 536, 500};
    resize(window, 500, 1021 - window.frameHeight);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 500, 982}, {0, 0, 500, 981}}));
}

TEST(ResizeWithinScreen, MovesALowWindowUpWithoutTouchingItsLeftEdge) {
    FakeWindow window;
    window.frame = {333, 900, 700, 1000};
    resize(window, 400, 200);
    EXPECT_EQ(window.sizes.size(), 1U);
    EXPECT_EQ(window.moves, (std::vector<Rect>{{333, 801, 0, 0}}));
}

TEST(ResizeWithinScreen, LeavesAWindowThatMeetsTheBottomExactly) {
    FakeWindow window;
    window.frame = {333, 801, 700, 1000};
    resize(window, 400, 200);
    EXPECT_EQ(window.frame.bottom, 1040);
    EXPECT_TRUE(window.moves.empty());
}

TEST(ResizeWithinScreen, NeverMovesTheTopAboveTheWorkArea) {
    FakeWindow window;
    window.frame = {-1000, 600, -700, 800};
    window.minimumHeight = 1200;  // stays taller than the work area whatever is asked
    resize(window, 400, 900, leftOfPrimary);
    ASSERT_EQ(window.moves.size(), 1U);
    EXPECT_EQ(window.moves[0], (Rect{-1000, 130, 0, 0}));
}

TEST(ResizeWithinScreen, CountsFromTheWorkAreasOwnTop) {
    FakeWindow window;
    window.frame = {-1000, 130, -700, 400};
    // 1124 - 130 - 20 = 974 available, 1000 + 39 tall: 1000 * 974 / 1039 = 937.4.
    resize(window, 400, 1000, leftOfPrimary);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 400, 1000}, {0, 0, 400, 937}}));
}

TEST(ResizeWithinScreen, UsesThePrimaryScreensHeightWithoutAMonitor) {
    FakeWindow window;
    window.frame = {0, 0, 100, 100};
    // 768 - 20 = 748 available, 1000 + 39 tall: 1000 * 748 / 1039 = 719.9.
    resize(window, 400, 1000, std::nullopt);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 400, 1000}, {0, 0, 400, 719}}));
    window.frame = {0, 700, 100, 760};
    resize(window, 400, 61, std::nullopt);
    EXPECT_EQ(window.moves, (std::vector<Rect>{{0, 668, 0, 0}}));
}

TEST(ResizeWithinScreen, DoesNothingOnAWorkAreaWithoutRoom) {
    FakeWindow window;
    constexpr Monitor flat{.area = {0, 0, 1920, 20}, .workArea = {0, 0, 1920, 20}};
    resize(window, 400, 300, flat);
    EXPECT_TRUE(window.sizes.empty());
    resizeWithinScreen(window.handle(), std::nullopt, 20, 400, 300);
    EXPECT_TRUE(window.sizes.empty());
    resizeWithinScreen(window.handle(), std::nullopt, 21, 400, 300);
    EXPECT_FALSE(window.sizes.empty());
}

TEST(ResizeWithinScreen, KeepsTheAskedHeightWhenTheScaledOneWouldBeNothing) {
    FakeWindow window;
    window.minimumHeight = 4000;
    resize(window, 400, 3);
    EXPECT_EQ(window.sizes, (std::vector<Rect>{{0, 0, 400, 3}}));
}

TEST(ResizeWithinScreen, StopsAfterTheFirstSizeWhenTheWindowIsGone) {
    FakeWindow window;
    window.gone = true;
    resize(window, 400, 3000);
    EXPECT_EQ(window.sizes.size(), 1U);
    EXPECT_TRUE(window.moves.empty());
}

TEST(ResizeWithinScreen, ScalesTheLargestRequestWithoutOverflow) {
    FakeWindow window;
    window.frame = {0, 0, 10, 10};
    window.frameHeight = 0;
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    resize(window, 400, most);
    ASSERT_EQ(window.sizes.size(), 2U);
    EXPECT_EQ(window.sizes[1], (Rect{0, 0, 400, 1020}));
}

}  // namespace
}  // namespace ravelin
