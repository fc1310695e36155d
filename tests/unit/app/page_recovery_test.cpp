#include "app/page_recovery.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

constexpr auto page = EngineProcess::mainPage;

TEST(PageRecoveries, AnEngineThatEndedIsTheEndOfTheView) {
    PageRecovery recovery;
    EXPECT_EQ(recovery.judge(EngineProcess::browser, 0), Recovery::giveUp);
}

TEST(PageRecoveries, ThePageIsShownAgain) {
    PageRecovery recovery;
    EXPECT_EQ(recovery.judge(page, 1'000), Recovery::showPageAgain);
}

TEST(PageRecoveries, WhatTheEngineStartsAgainByItselfIsLeftToIt) {
    PageRecovery recovery;
    for (int kind = 2; kind < 20; ++kind)
        EXPECT_EQ(recovery.judge(static_cast<EngineProcess>(kind), 0), Recovery::none) << kind;
    EXPECT_EQ(recovery.judge(static_cast<EngineProcess>(-1), 0), Recovery::none);
}

TEST(PageRecoveries, APageThatEndsAgainAndAgainIsGivenUp) {
    PageRecovery recovery;
    for (const std::uint64_t now : {0U, 20'000U, 40'000U})
        EXPECT_EQ(recovery.judge(page, now), Recovery::showPageAgain) << now;
    EXPECT_EQ(recovery.judge(page, 59'999), Recovery::giveUp);
}

TEST(PageRecoveries, APageThatEndsNowAndThenIsShownForAsLongAsItTakes) {
    PageRecovery recovery;
    for (std::uint64_t now = 0; now < 3'600'000; now += 20'000)
        EXPECT_EQ(recovery.judge(page, now), Recovery::showPageAgain) << now;
    // Three within the last minute, the fourth too early.
    EXPECT_EQ(recovery.judge(page, 3'599'999), Recovery::giveUp);
}

}  // namespace
}  // namespace ravelin
