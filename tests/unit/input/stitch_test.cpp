#include "input/stitch.h"

#include <gmock/gmock.h>

#include <limits>

#include "input/synthetic_input.h"

namespace ravelin {
namespace {

using testing::ElementsAre;

constexpr double guard = 0.55;
constexpr double rounding = 1e-12;

UnifiedEvent key(double time) {
    UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(EventKind::Key);
    event.time = time;
    return event;
}

UnifiedEvent button(double time, std::uint32_t flags) {
    UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(EventKind::MouseButton);
    event.time = time;
    event.flags = flags;
    return event;
}

UnifiedEvent press(double time) {
    return button(time, mouse_flag::leftDown);
}

std::vector<double> stitched(EventList events, std::size_t continuation) {
    stitchContinuation(events, continuation, guard);
    std::vector<double> times;
    for (const UnifiedEvent& event : events)
        times.push_back(event.time);
    return times;
}

TEST(Stitch, BeginsAFreshRecordingAtExactlyZero) {
    const auto times = stitched({key(1.7), key(1.9), key(2.3)}, 0);
    EXPECT_THAT(times, ElementsAre(0.0, 1.9 - 1.7, 2.3 - 1.7));
}

TEST(Stitch, TakesTheSmallestTimeNotTheFirst) {
    EXPECT_THAT(stitched({key(5.0), key(4.0)}, 0), ElementsAre(1.0, 0.0));
}

TEST(Stitch, ChangesNothingWithoutEvents) {
    EXPECT_THAT(stitched({}, 0), ElementsAre());
    EXPECT_THAT(stitched({}, 3), ElementsAre());
}

TEST(Stitch, ChangesNothingWithoutNewEvents) {
    EXPECT_THAT(stitched({key(3.0), key(4.0)}, 2), ElementsAre(3.0, 4.0));
    EXPECT_THAT(stitched({key(3.0), key(4.0)}, 9), ElementsAre(3.0, 4.0));
}

TEST(Stitch, JoinsATenthOfASecondAfterTheOldPart) {
    const double shift = 7.3 - (2.5 + 0.1);
    EXPECT_THAT(stitched({key(0.0), key(2.5), key(7.3), key(8.0)}, 2),
                ElementsAre(0.0, 2.5, 7.3 - shift, 8.0 - shift));
}

TEST(Stitch, TakesTheLargestTimeOfTheOldPart) {
    const double shift = 0.0 - (9.0 + 0.1);
    EXPECT_THAT(stitched({key(9.0), key(2.0), key(0.0)}, 2), ElementsAre(9.0, 2.0, 0.0 - shift));
}

TEST(Stitch, KeepsTwoClicksOfOneButtonTheGuardApart) {
    // 0.1 s after the shift they would be a double click.
    const auto times = stitched({press(1.0), press(4.25)}, 1);
    const double shift = 4.25 - (1.0 + 0.1);
    const double gap = (4.25 - shift) - 1.0;
    EXPECT_EQ(times[1], 4.25 - (shift - (guard - gap)));
    EXPECT_NEAR(times[1] - times[0], guard, rounding);
}

TEST(Stitch, CountsTheTimeOnBothSidesOfTheJoin) {
    // The press lies 0.3 s before the end of the old part, the other 0.1 s after the join.
    const auto times = stitched({press(1.0), key(1.3), key(10.0), press(10.1)}, 2);
    EXPECT_NEAR(times[3] - times[0], guard, rounding);
    EXPECT_NEAR(times[3] - times[2], 0.1, rounding);
}

TEST(Stitch, LeavesClicksAloneThatAreTheGuardApartAlready) {
    const auto times = stitched({press(1.0), key(1.5), key(10.0), press(10.0)}, 2);
    EXPECT_NEAR(times[2], 1.6, rounding) << "0.6 s after the press is beyond the guard";
}

TEST(Stitch, LeavesClicksOfDifferentButtonsAlone) {
    const auto times = stitched({press(1.0), button(4.0, mouse_flag::rightDown)}, 1);
    EXPECT_NEAR(times[1], 1.1, rounding);
}

TEST(Stitch, GuardsEveryButton) {
    for (const auto flags : {mouse_flag::leftDown, mouse_flag::rightDown, mouse_flag::middleDown,
                             mouse_flag::sideDown}) {
        const auto times = stitched({button(1.0, flags), button(4.0, flags)}, 1);
        EXPECT_NEAR(times[1] - times[0], guard, rounding) << flags;
    }
}

TEST(Stitch, GuardsPressesOnly) {
    for (const auto flags :
         {mouse_flag::leftUp, mouse_flag::rightUp, mouse_flag::middleUp, 0U, 10U}) {
        const auto times = stitched({button(1.0, flags), button(4.0, flags)}, 1);
        EXPECT_NEAR(times[1] - times[0], 0.1, rounding) << flags;
    }
    UnifiedEvent keyWithFlags = key(4.0);
    keyWithFlags.flags = mouse_flag::leftDown;
    EXPECT_DOUBLE_EQ(stitched({press(1.0), keyWithFlags}, 1)[1], 1.1);
}

TEST(Stitch, ComparesTheLastOldPressWithTheFirstNewOne) {
    // Left, then right before the join; left, then right behind it: no pair.
    const auto times = stitched({press(0.0), button(0.9, mouse_flag::rightDown), press(5.0),
                                 button(5.2, mouse_flag::rightDown)},
                                2);
    EXPECT_NEAR(times[2], 1.0, rounding);
}

TEST(Stitch, ChoosesPressesByTimeNotByPlace) {
    // The last old press by time is the left one, the first new one by time the left one as well.
    const auto times = stitched({press(1.0), button(0.2, mouse_flag::rightDown),
                                 button(6.0, mouse_flag::rightDown), press(5.0)},
                                2);
    EXPECT_NEAR(times[3] - times[0], guard, rounding);
}

TEST(Stitch, TakesTheLaterOfTwoOldPressesAtOneTime) {
    const auto rightLater =
        stitched({press(1.0), button(1.0, mouse_flag::rightDown), press(5.0)}, 2);
    EXPECT_NEAR(rightLater[2], 1.1, rounding);
    const auto leftLater =
        stitched({button(1.0, mouse_flag::rightDown), press(1.0), press(5.0)}, 2);
    EXPECT_NEAR(leftLater[2], 1.0 + guard, rounding);
}

TEST(Stitch, TakesTheEarlierOfTwoNewPressesAtOneTime) {
    const auto rightEarlier =
        stitched({press(1.0), button(5.0, mouse_flag::rightDown), press(5.0)}, 1);
    EXPECT_NEAR(rightEarlier[1], 1.1, rounding);
    const auto leftEarlier =
        stitched({press(1.0), press(5.0), button(5.0, mouse_flag::rightDown)}, 1);
    EXPECT_NEAR(leftEarlier[1], 1.0 + guard, rounding);
}

TEST(Stitch, NeedsNoGuardWithoutAnOldPress) {
    EXPECT_DOUBLE_EQ(stitched({key(1.0), press(5.0)}, 1)[1], 1.1);
    EXPECT_EQ(stitched({press(5.0), press(5.2)}, 0)[1], 5.2 - 5.0);
}

}  // namespace
}  // namespace ravelin
