#include "app/view_wait.h"

#include <gtest/gtest.h>

#include <string>

#include "app/view_failure.h"

namespace ravelin {
namespace {

constexpr std::uint64_t limit = 60'000;
constexpr std::uint32_t granted = 0;
constexpr std::uint32_t accessDenied = 0x80070005;

// What happens at every quarter of a second until the wait is given up, but for going on:
// "2000 ask, 60000 give up". The engine answers a second after each question, if at all.
std::string course(ViewWait& wait, std::optional<std::uint32_t> answer) {
    std::string text;
    std::uint64_t asked = 0;
    for (std::uint64_t now = 0; now <= limit + 1'000; now += 250) {
        if (asked != 0 && answer && now == asked + 1'000) wait.answered(*answer, now);
        const WaitStep step = wait.step(now);
        if (step == WaitStep::goOn) continue;
        if (!text.empty()) text += ", ";
        text += std::to_string(now);
        if (step == WaitStep::giveUp) return text + " give up";
        text += " ask";
        asked = now;
    }
    return text;
}

TEST(ViewWaits, EndAtTheLimitWhenNobodyAnswers) {
    ViewWait wait(limit);
    EXPECT_EQ(course(wait, {}), "2000 ask, 60000 give up");
    EXPECT_TRUE(wait.timedOut());
    EXPECT_EQ(wait.answer(), std::nullopt);
}

TEST(ViewWaits, EndAtOnceWithARefusalThatTheLibraryKeepsToItself) {
    for (const std::uint32_t answer : {otherEngineRuns, creationAborted}) {
        ViewWait wait(limit);
        EXPECT_EQ(course(wait, answer), "2000 ask, 3000 give up");
        EXPECT_FALSE(wait.timedOut());
        EXPECT_EQ(wait.answer(), answer);
    }
}

TEST(ViewWaits, GoOnWhenTheEngineWouldServeAndAskAgain) {
    for (const std::uint32_t answer : {granted, accessDenied}) {
        ViewWait wait(limit);
        EXPECT_EQ(course(wait, answer),
                  "2000 ask, 13000 ask, 24000 ask, 35000 ask, 46000 ask, 57000 ask, 60000 give up");
        EXPECT_TRUE(wait.timedOut());
        EXPECT_EQ(wait.answer(), answer);
    }
}

TEST(ViewWaits, AskNothingOfAnEngineThatTakesItsOrdinaryTime) {
    ViewWait wait(limit);
    for (std::uint64_t now = 0; now < ViewWait::firstQuestion; now += 250)
        EXPECT_EQ(wait.step(now), WaitStep::goOn) << now;
}

TEST(ViewWaits, EndAtTheLimitAlsoAfterALongSilenceOfTheThread) {
    ViewWait wait(limit);
    EXPECT_EQ(wait.step(limit + 5'000), WaitStep::giveUp);
    EXPECT_TRUE(wait.timedOut());
}

}  // namespace
}  // namespace ravelin
