#include "scanner/repeats.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "key_script.h"

namespace MacroScan {
namespace {

using scanner_test::script;

SeqResult search(const std::string& text, int count, double windowSec) {
    const ravelin::EventList events = script(text);
    return MatchRepeated(BuildKeyEvents(events), Combo({}, 'A'), count, windowSec);
}

TEST(Repeats, TheWindowIncludesItsEnd) {
    const SeqResult found = search("a@0 a@4 a@10", 3, 10.0);
    EXPECT_TRUE(found.matched);
    EXPECT_EQ(found.atSec, 0.0);
    EXPECT_FALSE(search("a@0 a@4 a@10.001", 3, 10.0).matched);
}

TEST(Repeats, NeedTheFullCount) {
    EXPECT_FALSE(search("a@0 a@1", 3, 10.0).matched);
    EXPECT_FALSE(search("a@0 b@1 a@2", 3, 10.0).matched);
    EXPECT_FALSE(search("", 1, 10.0).matched);
    EXPECT_FALSE(search("b", 1, 10.0).matched);
}

TEST(Repeats, BeginAtTheFirstPressWithEnoughOthersInItsWindow) {
    EXPECT_EQ(search("a@0 a@20 a@25 a@28 a@29", 3, 10.0).atSec, 20.0);
}

TEST(Repeats, IgnorePressesThatDoNotSatisfyThePredicate) {
    EXPECT_EQ(search("b@0 a@1 b@2 Ctrl+a@3 a@4 b@5 a@6", 3, 10.0).atSec, 1.0);
}

TEST(Repeats, FollowListOrderEvenWhereTimesRunBackwards) {
    const SeqResult found = search("a@100 a@50 a@60", 3, 10.0);
    EXPECT_TRUE(found.matched);
    EXPECT_EQ(found.atSec, 100.0);
}

TEST(Repeats, OfOneAreFoundAtTheFirstPress) {
    EXPECT_EQ(search("b a@3 a", 1, 0.0).atSec, 3.0);
    EXPECT_FALSE(search("a", 1, -1.0).matched);
}

TEST(Repeats, WithACountBelowOneAreNeverFound) {
    EXPECT_FALSE(search("a a", 0, 10.0).matched);
    EXPECT_FALSE(search("a a", -1, 10.0).matched);
}

TEST(Repeats, WithAHugeCountAreNotFound) {
    EXPECT_FALSE(search("a a", std::numeric_limits<int>::max(), 10.0).matched);
}

TEST(Repeats, ATimeThatIsNotANumberIsWithinNoWindow) {
    EXPECT_EQ(search("a@nan a@1 a@2", 2, 10.0).atSec, 1.0);
    EXPECT_FALSE(search("a@0 a@nan a@1", 2, 10.0).matched);
}

}  // namespace
}  // namespace MacroScan
