#include "input/event_list.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace ravelin {
namespace {

UnifiedEvent at(double time) {
    UnifiedEvent event;
    event.time = time;
    return event;
}

EventList listOf(std::size_t count) {
    EventList list;
    for (std::size_t i = 0; i < count; ++i)
        list.append(at(static_cast<double>(i)));
    return list;
}

std::vector<double> timesOf(const EventList& list) {
    std::vector<double> times;
    for (const UnifiedEvent& event : list)
        times.push_back(event.time);
    return times;
}

// Around the border of a chunk, and well beyond it.
class EventListOf : public testing::TestWithParam<std::size_t> {};

TEST_P(EventListOf, KeepsWhatIsAppendedInOrder) {
    const EventList list = listOf(GetParam());
    ASSERT_EQ(list.size(), GetParam());
    EXPECT_EQ(list.empty(), GetParam() == 0);
    const auto times = timesOf(list);
    ASSERT_EQ(times.size(), GetParam());
    for (std::size_t i = 0; i < times.size(); ++i) {
        ASSERT_EQ(times[i], static_cast<double>(i));
        ASSERT_EQ(list[i].time, static_cast<double>(i));
    }
}

TEST_P(EventListOf, PartsFromItsCopyWhenBothAreAppendedTo) {
    EventList list = listOf(GetParam());
    const EventList snapshot = list;
    EventList copy = list;
    list.append(at(-1));
    copy.append(at(-2));
    list.append(at(-3));
    EXPECT_EQ(snapshot, listOf(GetParam()));
    ASSERT_EQ(copy.size(), GetParam() + 1);
    EXPECT_EQ(copy[GetParam()].time, -2);
    ASSERT_EQ(list.size(), GetParam() + 2);
    EXPECT_EQ(list[GetParam()].time, -1);
    EXPECT_EQ(list[GetParam() + 1].time, -3);
}

TEST_P(EventListOf, ShiftsItsTimesWithoutTouchingACopy) {
    for (const std::size_t first : {std::size_t{0}, GetParam() / 2, GetParam()}) {
        EventList list = listOf(GetParam());
        const EventList copy = list;
        list.shiftTimes(first, 0.5);
        EXPECT_EQ(copy, listOf(GetParam()));
        const auto times = timesOf(list);
        for (std::size_t i = 0; i < times.size(); ++i)
            ASSERT_EQ(times[i], static_cast<double>(i) - (i >= first ? 0.5 : 0.0));
    }
}

TEST_P(EventListOf, SharesStorageWithItsSnapshotUntilEitherChanges) {
    EventList list = listOf(GetParam());
    const EventList snapshot = list;
    EXPECT_TRUE(list.isSnapshot(snapshot));
    list.append(at(0));
    EXPECT_FALSE(list.isSnapshot(snapshot));
}

INSTANTIATE_TEST_SUITE_P(Sizes, EventListOf,
                         testing::Values(0, 1, 2, EventList::chunkSize - 1, EventList::chunkSize,
                                         EventList::chunkSize + 1, 5 * EventList::chunkSize + 7));

TEST(EventListTest, IsEqualByEveryField) {
    UnifiedEvent event;
    event.kind = 2;
    event.time = 0.1;
    event.x = 3;
    event.y = 4;
    event.flags = 5;
    event.vk = 6;
    event.down = 1;
    event.wheel = 7;
    const EventList list{event};
    EXPECT_EQ(list, EventList{event});
    const auto differs = [&](auto UnifiedEvent::*field, auto value) {
        UnifiedEvent other = event;
        other.*field = value;
        return list != EventList{other};
    };
    EXPECT_TRUE(differs(&UnifiedEvent::kind, 3));
    EXPECT_TRUE(differs(&UnifiedEvent::time, 0.1 + 1e-17 * 2));
    EXPECT_TRUE(differs(&UnifiedEvent::x, 0));
    EXPECT_TRUE(differs(&UnifiedEvent::y, 0));
    EXPECT_TRUE(differs(&UnifiedEvent::flags, 0U));
    EXPECT_TRUE(differs(&UnifiedEvent::vk, 0U));
    EXPECT_TRUE(differs(&UnifiedEvent::down, std::uint8_t{0}));
    EXPECT_TRUE(differs(&UnifiedEvent::wheel, 0));
}

TEST(EventListTest, DiffersByLengthAndByALateEvent) {
    const std::size_t size = 3 * EventList::chunkSize + 5;
    EventList longer = listOf(size);
    longer.append(at(0));
    EXPECT_NE(longer, listOf(size));
    EventList other = listOf(size - 1);
    other.append(at(-1));
    EXPECT_NE(other, listOf(size));
    EXPECT_EQ(listOf(size), listOf(size));
}

TEST(EventListTest, ForgetsEverythingWhenCleared) {
    EventList list = listOf(2000);
    const EventList copy = list;
    list.clear();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list, EventList());
    EXPECT_EQ(copy.size(), 2000U);
    list.append(at(9));
    EXPECT_EQ(timesOf(list), std::vector<double>{9});
}

TEST(EventListTest, IsNoSnapshotOfAnEqualListOfItsOwn) {
    EXPECT_FALSE(listOf(10).isSnapshot(listOf(10)));
    EXPECT_TRUE(EventList().isSnapshot(EventList()));
}

TEST(EventListTest, CanBeSearchedByStandardAlgorithms) {
    const EventList list = listOf(5000);
    const auto found =
        std::lower_bound(list.begin(), list.end(), 4321.0,
                         [](const UnifiedEvent& event, double time) { return event.time < time; });
    EXPECT_EQ(found - list.begin(), 4321);
    EXPECT_EQ(found[1].time, 4322);
    EXPECT_TRUE(list.begin() < found && found < list.end());
    auto back = list.end();
    --back;
    EXPECT_EQ((back--)->time, 4999);
    EXPECT_EQ((back++)->time, 4998);
    EXPECT_EQ((1 + list.begin())->time, 1);
    EXPECT_EQ((list.end() - 5000)->time, 0);
}

TEST(EventList, IsEmptyAfterItWasMovedFrom) {
    EventList list{at(0), at(1)};
    const EventList copy = list;
    EventList built = std::move(list);
    EXPECT_EQ(built, copy);
    EXPECT_EQ(list.size(), 0U);  // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.begin(), list.end());
    list.append(at(2));
    EXPECT_EQ(list, EventList{at(2)});

    EventList assigned{at(3)};
    assigned = std::move(built);
    EXPECT_EQ(assigned, copy);
    EXPECT_EQ(built, EventList());  // NOLINT(bugprone-use-after-move)
    auto& self = assigned;
    assigned = std::move(self);
    EXPECT_EQ(assigned, copy);
}

}  // namespace
}  // namespace ravelin
