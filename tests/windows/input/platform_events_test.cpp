#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "input/platform.h"

namespace ravelin::platform {
namespace {

constexpr std::uint32_t shortly = 30;        // ms, for waits that must run out
constexpr std::uint32_t longEnough = 20000;  // ms, a bound that only a failure reaches

class PlatformEvents : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(createEvents()); }
    void TearDown() override { closeEvents(); }

    // Whether a wait ran for its whole time.
    static bool runsOut(Event event) {
        const ULONGLONG before = GetTickCount64();
        waitForEventOrQuit(event, shortly);
        return GetTickCount64() - before >= shortly / 2;
    }
    // Whether a wait ended long before its time.
    static bool wakes(Event event) {
        const ULONGLONG before = GetTickCount64();
        waitForEventOrQuit(event, longEnough);
        return GetTickCount64() - before < longEnough;
    }
};

constexpr Event wakeEvents[] = {Event::command, Event::clickerWake, Event::keySpamWake,
                                Event::playerWake};

TEST_F(PlatformEvents, BeginClear) {
    for (const Event event : wakeEvents)
        EXPECT_TRUE(runsOut(event));
    EXPECT_TRUE(runsOut(Event::quit));
}

TEST_F(PlatformEvents, WakeOneWaitForEachSignal) {
    for (const Event event : wakeEvents) {
        signal(event);
        EXPECT_TRUE(wakes(event));
        EXPECT_TRUE(runsOut(event));
    }
}

TEST_F(PlatformEvents, WakeOnlyTheirOwnWait) {
    for (const Event signalled : wakeEvents) {
        signal(signalled);
        for (const Event other : wakeEvents) {
            EXPECT_TRUE(other == signalled || runsOut(other));
        }
        EXPECT_TRUE(wakes(signalled));
    }
}

TEST_F(PlatformEvents, RememberASignalThatNobodyWaitedFor) {
    signal(Event::command);
    signal(Event::command);
    EXPECT_TRUE(wakes(Event::command));
    EXPECT_TRUE(runsOut(Event::command));
}

TEST_F(PlatformEvents, QuitEndsEveryWaitAndStaysSet) {
    signal(Event::quit);
    for (int round = 0; round < 3; ++round) {
        for (const Event event : wakeEvents)
            EXPECT_TRUE(wakes(event));
        EXPECT_TRUE(wakes(Event::quit));
    }
}

TEST_F(PlatformEvents, QuitReachesAThreadThatWaitsForever) {
    std::thread waiting([] { waitForEventOrQuit(Event::clickerWake, forever); });
    signal(Event::quit);
    waiting.join();
}

TEST_F(PlatformEvents, ASignalReachesAThreadThatWaitsForever) {
    std::thread waiting([] { waitForEventOrQuit(Event::playerWake, forever); });
    signal(Event::playerWake);
    waiting.join();
}

TEST_F(PlatformEvents, AWaitOfNoTimeReturnsAtOnce) {
    waitForEventOrQuit(Event::command, 0);
    signal(Event::command);
    waitForEventOrQuit(Event::command, 0);
    EXPECT_TRUE(runsOut(Event::command));
}

TEST(ClosedPlatformEvents, AreHarmlessToSignalAndToWaitFor) {
    closeEvents();
    signal(Event::command);
    waitForEventOrQuit(Event::command, forever);
    SUCCEED();
}

TEST(ClosedPlatformEvents, CanBeMadeAnew) {
    ASSERT_TRUE(createEvents());
    signal(Event::quit);
    ASSERT_TRUE(createEvents());
    const ULONGLONG before = GetTickCount64();
    waitForEventOrQuit(Event::command, shortly);
    EXPECT_GE(GetTickCount64() - before, shortly / 2);
    closeEvents();
}

}  // namespace
}  // namespace ravelin::platform
