#include "scanner/sequence.h"

#include <gtest/gtest.h>

#include <string>

#include "key_script.h"

namespace MacroScan {
namespace {

using enum ModFamily;
using scanner_test::script;

SeqResult search(const std::string& text, const std::vector<KeyPredicate>& steps) {
    const ravelin::EventList events = script(text);
    return MatchSequence(BuildKeyEvents(events), steps);
}

const std::vector<KeyPredicate> aThenB = {Combo({}, 'A'), Combo({}, 'B')};

std::string repeat(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i)
        out += text;
    return out;
}

TEST(Sequence, IsMatchedAtTheTimeOfItsFirstStep) {
    const SeqResult found = search("b a@5.5 b", aThenB);
    EXPECT_TRUE(found.matched);
    EXPECT_EQ(found.atSec, 5.5);
}

TEST(Sequence, IsNotMatchedWithoutItsLastStep) {
    const SeqResult found = search("a a c", aThenB);
    EXPECT_FALSE(found.matched);
    EXPECT_EQ(found.atSec, 0.0);
}

TEST(Sequence, IsNotMatchedInTheWrongOrder) {
    EXPECT_FALSE(search("b a", aThenB).matched);
}

TEST(Sequence, BeginsAtTheFirstOfSeveralStarts) {
    EXPECT_EQ(search("c a a a b", aThenB).atSec, 1.0);
}

TEST(Sequence, AllowsOtherPressesAndAnyTimeBetweenTheSteps) {
    EXPECT_TRUE(search("a c Ctrl+b d b@1e9", aThenB).matched);
}

TEST(Sequence, FollowsListOrderEvenWhereTimesRunBackwards) {
    EXPECT_EQ(search("a@9 b@3", aThenB).atSec, 9.0);
}

TEST(Sequence, NeedsALaterPressForEachStep) {
    const std::vector<KeyPredicate> aThenA = {Combo({}, 'A'), Combo({}, 'A')};
    EXPECT_FALSE(search("a", aThenA).matched);
    EXPECT_TRUE(search("a a", aThenA).matched);
}

TEST(Sequence, OfOneStepIsMatchedAtTheFirstPressThatSatisfiesIt) {
    EXPECT_EQ(search("b a@3 a", {Combo({}, 'A')}).atSec, 3.0);
    EXPECT_FALSE(search("b", {Combo({}, 'A')}).matched);
}

TEST(Sequence, IsNotMatchedWithoutPressesOrWithoutSteps) {
    EXPECT_FALSE(search("", aThenB).matched);
    EXPECT_FALSE(search("", {}).matched);
    EXPECT_FALSE(search("a b", {}).matched);
}

TEST(Sequence, ManyStartsBeforeTheCompletionAreNoHindrance) {
    for (const int starts : {499, 500, 501, 2000}) {
        const SeqResult found = search("c " + repeat("a ", starts) + "b", aThenB);
        EXPECT_TRUE(found.matched) << starts;
        EXPECT_EQ(found.atSec, 1.0) << starts;
    }
}

TEST(Sequence, ManyStartsWithoutCompletionAreNotMatched) {
    for (const int starts : {499, 500, 501, 2000}) {
        EXPECT_FALSE(search("b " + repeat("a ", starts), aThenB).matched) << starts;
    }
}

TEST(Sequence, LooksForKeyCodesThatNoKeyboardHas) {
    ravelin::EventList events;
    events.append(scanner_test::keyEvent(1, 300, true));
    events.append(scanner_test::keyEvent(2, 301, true));
    events.append(scanner_test::keyEvent(3, 302, true));
    const auto keys = BuildKeyEvents(events);
    EXPECT_EQ(MatchSequence(keys, {Combo({}, 301), Combo({}, 302)}).atSec, 2.0);
    EXPECT_FALSE(MatchSequence(keys, {Combo({}, 302), Combo({}, 301)}).matched);
}

TEST(Sequence, AsksAPredicateOnceForEachChord) {
    int asked = 0;
    const KeyPredicate counting = [&](const ravelin::UnifiedEvent& event, const HeldMods&) {
        ++asked;
        return event.vk == 'Z';
    };
    EXPECT_FALSE(search(repeat("a b ", 5000), {counting}).matched);
    EXPECT_EQ(asked, 2);
}

}  // namespace
}  // namespace MacroScan
