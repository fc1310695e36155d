#include "scanner/typing_burst.h"

#include <gtest/gtest.h>

#include <string>

#include "key_script.h"

namespace MacroScan {
namespace {

using scanner_test::script;

TypingBurst search(const std::string& text) {
    const ravelin::EventList events = script(text);
    return FindTypingBurst(BuildKeyEvents(events));
}

TEST(TypingBursts, EightKeysInExactlyFiveSecondsAreOne) {
    const TypingBurst burst = search("a@2 b@2 c@3 d@3 e@4 f@5 g@6 h@7");
    EXPECT_TRUE(burst.found);
    EXPECT_EQ(burst.atSec, 2.0);
    EXPECT_EQ(burst.endIndex, 7u);
}

TEST(TypingBursts, EightKeysInMoreThanFiveSecondsAreNone) {
    const TypingBurst burst = search("a@2 b@2 c@3 d@3 e@4 f@5 g@6 h@7.001");
    EXPECT_FALSE(burst.found);
    EXPECT_EQ(burst.atSec, 0.0);
    EXPECT_EQ(burst.endIndex, 0u);
}

TEST(TypingBursts, SevenKeysAreNone) {
    EXPECT_FALSE(search("a@0 b@0 c@0 d@0 e@0 f@0 g@0").found);
    EXPECT_FALSE(search("a@0 b@0 c@0 d@0 e@0 f@0 g@0 Enter@0 Ctrl+h@0").found);
    EXPECT_FALSE(search("").found);
}

TEST(TypingBursts, OtherPressesBetweenTheKeysCountInTheIndexOnly) {
    const TypingBurst burst =
        search("Enter@0 a@1 b@1 Backspace@1 c@1 d@1 Shift+e@1 f@1 g@1 Ctrl+x@1 h@1 i@1");
    EXPECT_TRUE(burst.found);
    EXPECT_EQ(burst.atSec, 1.0);
    // Shift and Ctrl are presses of their own.
    EXPECT_EQ(burst.endIndex, 12u);
}

TEST(TypingBursts, SlowKeysBeforeABurstAreNotPartOfIt) {
    const TypingBurst burst = search("a@0 b@10 c@20 a@30 b@30 c@30 d@30 e@30 f@30 g@30 h@31 i@31");
    EXPECT_TRUE(burst.found);
    EXPECT_EQ(burst.atSec, 30.0);
    EXPECT_EQ(burst.endIndex, 10u);
}

TEST(TypingBursts, TheFirstOfTwoIsReported) {
    const TypingBurst burst =
        search("a@1 b@1 c@1 d@1 e@1 f@1 g@1 h@1 a@90 b@90 c@90 d@90 e@90 f@90 g@90 h@90");
    EXPECT_EQ(burst.atSec, 1.0);
    EXPECT_EQ(burst.endIndex, 7u);
}

TEST(TypingBursts, DigitsKeypadSpaceAndPunctuationAreText) {
    ravelin::EventList events;
    for (const std::uint32_t vk : {48u, 90u, 32u, 96u, 105u, 186u, 219u, 223u}) {
        events.append(scanner_test::keyEvent(0, vk, true));
    }
    EXPECT_TRUE(FindTypingBurst(BuildKeyEvents(events)).found);
}

}  // namespace
}  // namespace MacroScan
