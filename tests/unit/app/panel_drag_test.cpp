#include "app/panel_drag.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

using platform::Point;

constexpr Rect mainWindow{100, 100, 500, 600};

class PanelDragging : public testing::Test {
  protected:
    PanelDragging() { drag_.begin({700, 210}, {600, 200, 1050, 600}); }
    PanelDrag drag_;
};

TEST_F(PanelDragging, TheWindowFollowsTheCursorFromWhereItWas) {
    EXPECT_EQ(drag_.move({705, 207}, mainWindow).corner, (Point{605, 197}));
    EXPECT_EQ(drag_.move({-50, 10}, mainWindow).corner, (Point{-150, 0}));
}

TEST_F(PanelDragging, HoverIsToldOnlyWhenItChanges) {
    EXPECT_EQ(drag_.move({600, 200}, mainWindow).hover, std::nullopt);
    EXPECT_EQ(drag_.move({499, 599}, mainWindow).hover, true);
    EXPECT_EQ(drag_.move({300, 300}, mainWindow).hover, std::nullopt);
    EXPECT_EQ(drag_.move({500, 300}, mainWindow).hover, false);
    EXPECT_EQ(drag_.move({100, 100}, mainWindow).hover, true);
    EXPECT_EQ(drag_.move({99, 100}, mainWindow).hover, false);
}

TEST_F(PanelDragging, AMainWindowThatIsGoneLeavesTheHoverAsItWas) {
    EXPECT_EQ(drag_.move({300, 300}, std::nullopt).hover, std::nullopt);
    drag_.move({300, 300}, mainWindow);
    EXPECT_EQ(drag_.move({900, 300}, std::nullopt).hover, std::nullopt);
}

TEST_F(PanelDragging, ReleasingOverTheMainWindowDocks) {
    drag_.move({300, 300}, mainWindow);
    const auto end = drag_.end(true);
    EXPECT_TRUE(end.docks);
    EXPECT_TRUE(end.hoverEnds);
    EXPECT_FALSE(drag_.dragging());
}

TEST_F(PanelDragging, ReleasingElsewhereLeavesTheWindowThere) {
    drag_.move({300, 300}, mainWindow);
    drag_.move({800, 300}, mainWindow);
    const auto end = drag_.end(true);
    EXPECT_FALSE(end.docks);
    EXPECT_FALSE(end.hoverEnds);
}

TEST_F(PanelDragging, LosingTheMouseEndsTheHoverAndNeverDocks) {
    drag_.move({300, 300}, mainWindow);
    const auto end = drag_.end(false);
    EXPECT_FALSE(end.docks);
    EXPECT_TRUE(end.hoverEnds);
    EXPECT_FALSE(drag_.dragging());
}

TEST_F(PanelDragging, ANewDragStartsWithoutHover) {
    drag_.move({300, 300}, mainWindow);
    drag_.begin({320, 310}, {200, 300, 650, 700});
    EXPECT_EQ(drag_.move({321, 310}, mainWindow).hover, true);
}

}  // namespace
}  // namespace ravelin
