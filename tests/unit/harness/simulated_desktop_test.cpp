// The desktop on which the engine's tests rest: its clock, its events, what it sends and what it
// writes down.
#include "tests/support/simulated_desktop.h"

#include <gmock/gmock.h>

#include <set>

#include "input/auto_clicker.h"
#include "input/synthetic_input.h"
#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

class Desktop : public EngineTest {
  protected:
    // Notes its name when the clock reaches the moment.
    void noteAt(double seconds, const std::string& name) {
        desktop.at(seconds, [this, name] { notes.push_back(name); });
    }
    static void signalAt(double seconds, Event event) {
        desktop.at(seconds, [event] { platform::signal(event); });
    }
    static bool runEnded() { return !engine.running.load() && desktop.isSignalled(Event::quit); }

    Texts notes;
};

TEST_F(Desktop, StartsItsClockAtZeroAndMovesItOnlyWhenTold) {
    EXPECT_EQ(desktop.now(), 0.0);
    desktop.advance(1.5);
    EXPECT_EQ(desktop.now(), 1.5);
    platform::sleepMs(250);
    EXPECT_EQ(desktop.now(), 1.75);
    platform::send(platform::MouseInput{});
    platform::signal(Event::clickerWake);
    EXPECT_EQ(desktop.now(), 1.75);
}

TEST_F(Desktop, TakesAMicrosecondForEveryReadingOfTheCounter) {
    const auto first = platform::counter();
    const auto second = platform::counter();
    EXPECT_EQ(second - first, platform::counterFrequency() / 1'000'000);
    EXPECT_EQ(desktop.counterReads, 2);
    platform::sleepMs(1000);
    EXPECT_EQ(platform::counter() - second, platform::counterFrequency() + 10);
}

TEST_F(Desktop, RunsActionsAtTheirMomentsInTheOrderOfTimeThenOfTheCalls) {
    noteAt(2, "c");
    noteAt(1, "a");
    noteAt(1, "b");
    noteAt(3, "too late");
    desktop.advance(2.5);
    EXPECT_THAT(notes, ElementsAre("a", "b", "c"));
    EXPECT_EQ(desktop.now(), 2.5);
}

TEST_F(Desktop, SetsTheClockToAnActionsMomentWhileItRuns) {
    std::vector<double> moments;
    for (const double moment : {0.25, 0.5})
        desktop.at(moment, [&] { moments.push_back(desktop.now()); });
    platform::sleepMs(1000);
    EXPECT_THAT(moments, ElementsAre(0.25, 0.5));
}

TEST_F(Desktop, RunsWhatAnActionSchedulesInTheSameStretchOfTime) {
    desktop.at(1, [this] {
        noteAt(1, "at once");
        noteAt(2, "later");
        noteAt(0.5, "in the past");
    });
    desktop.advance(3);
    EXPECT_THAT(notes, ElementsAre("in the past", "at once", "later"));
}

TEST_F(Desktop, NeverTurnsTheClockBack) {
    desktop.advance(5);
    double moment = 0;
    desktop.at(1, [&] { moment = desktop.now(); });
    desktop.advance(1);
    EXPECT_EQ(moment, 5.0);
    EXPECT_EQ(desktop.now(), 6.0);
}

TEST_F(Desktop, LetsTimeThatAnActionTakesPassWithoutOthers) {
    desktop.at(1, [this] {
        desktop.advance(2);
        notes.push_back("first");
    });
    noteAt(2, "second");
    desktop.advance(1);
    EXPECT_THAT(notes, ElementsAre("first"));
    EXPECT_EQ(desktop.now(), 3.0);
    desktop.advance(0);
    EXPECT_THAT(notes, ElementsAre("first", "second"));
}

TEST_F(Desktop, WaitsToTheMillisecondWhenNothingIsSignalled) {
    platform::waitForEventOrQuit(Event::clickerWake, 1234);
    EXPECT_EQ(desktop.now(), 1.234);
    EXPECT_TRUE(engine.running.load());
}

TEST_F(Desktop, WaitsNotAtAllForWhatIsSignalledAlready) {
    platform::signal(Event::playerWake);
    platform::waitForEventOrQuit(Event::playerWake, 1000);
    EXPECT_EQ(desktop.now(), 0.0);
    EXPECT_FALSE(desktop.isSignalled(Event::playerWake)) << "a wait consumes its event";
    platform::waitForEventOrQuit(Event::playerWake, 1000);
    EXPECT_EQ(desktop.now(), 1.0);
}

TEST_F(Desktop, EndsAWaitAtTheMomentOfTheSignal) {
    for (const auto limit : {std::uint32_t{1000}, platform::forever}) {
        const double start = desktop.now();
        signalAt(start + 0.3, Event::clickerWake);
        noteAt(start + 0.4, "not yet");
        platform::waitForEventOrQuit(Event::clickerWake, limit);
        EXPECT_EQ(desktop.now(), start + 0.3);
        EXPECT_THAT(notes, testing::IsEmpty());
        EXPECT_FALSE(desktop.isSignalled(Event::clickerWake));
        desktop.advance(1);
        notes.clear();
    }
}

TEST_F(Desktop, EndsAWaitByItsOwnEventOrQuitAlone) {
    signalAt(0.1, Event::playerWake);
    signalAt(0.2, Event::keySpamWake);
    platform::waitForEventOrQuit(Event::clickerWake, 500);
    EXPECT_EQ(desktop.now(), 0.5);
    EXPECT_TRUE(desktop.isSignalled(Event::playerWake));
    EXPECT_TRUE(desktop.isSignalled(Event::keySpamWake));
}

TEST_F(Desktop, KeepsQuitUpForEveryWait) {
    signalAt(1, Event::quit);
    for (const auto event : {Event::clickerWake, Event::quit, Event::command}) {
        platform::waitForEventOrQuit(event, platform::forever);
        EXPECT_EQ(desktop.now(), 1.0);
        EXPECT_TRUE(desktop.isSignalled(Event::quit));
    }
    EXPECT_TRUE(engine.running.load()) << "nobody cleared it";
    desktop.clearQuit();
    platform::waitForEventOrQuit(Event::clickerWake, 500);
    EXPECT_EQ(desktop.now(), 1.5);
}

TEST_F(Desktop, RunsEverythingThatIsScheduledInAWaitWithoutEndAndThenEndsTheRun) {
    noteAt(1, "a");
    noteAt(3600, "b");
    platform::waitForEventOrQuit(Event::clickerWake, platform::forever);
    EXPECT_THAT(notes, ElementsAre("a", "b"));
    EXPECT_EQ(desktop.now(), 3600.0);
    EXPECT_TRUE(runEnded());
}

TEST_F(Desktop, EndsARunThatNothingStops) {
    desktop.endOfTime = 10;
    noteAt(9.9, "still there");
    desktop.advance(9.9);
    EXPECT_TRUE(engine.running.load());
    desktop.advance(0.1);
    EXPECT_TRUE(runEnded());
    EXPECT_THAT(notes, ElementsAre("still there"));
}

TEST_F(Desktop, EndsARunThatSendsWithoutEnd) {
    desktop.logLimit = 100;
    for (int i = 1; i < 100; ++i)
        sendMouseButton(mouse_flag::leftDown);
    EXPECT_TRUE(engine.running.load());
    sendMouseButton(mouse_flag::leftDown);
    EXPECT_TRUE(runEnded());
}

TEST_F(Desktop, RunsTheCommandPassAtEverySignalOfTheCommandEvent) {
    int passes = 0;
    desktop.onCommand = [&] { ++passes; };
    platform::signal(Event::command);
    EXPECT_EQ(passes, 1);
    EXPECT_FALSE(desktop.isSignalled(Event::command));
    platform::signal(Event::clickerWake);
    EXPECT_EQ(passes, 1);
}

TEST_F(Desktop, FollowsACommandPassThatSignalsWithAnotherOneNotInsideIt) {
    int depth = 0;
    desktop.onCommand = [&] {
        EXPECT_EQ(++depth, 1);
        notes.emplace_back("pass");
        if (notes.size() < 3) platform::signal(Event::command);
        --depth;
    };
    platform::signal(Event::command);
    EXPECT_THAT(notes, ElementsAre("pass", "pass", "pass"));
}

TEST_F(Desktop, KeepsTheCommandEventForAThreadThatWaitsForIt) {
    platform::signal(Event::command);
    EXPECT_TRUE(desktop.isSignalled(Event::command));
    platform::waitForEventOrQuit(Event::command, 1000);
    EXPECT_EQ(desktop.now(), 0.0);
}

TEST_F(Desktop, WritesEveryRecordDownWithItsMomentBeforeItTellsOfIt) {
    desktop.onSend = [this](const Sent& sent) {
        notes.push_back(sent.text + " of " + std::to_string(desktop.log.size()));
    };
    desktop.advance(0.5);
    sendKey(65, true);
    desktop.advance(0.25);
    moveMouseAbsolute(10, 20);
    EXPECT_THAT(desktop.texts(), ElementsAre("key 65 down", "move 10,20"));
    EXPECT_THAT(desktop.times(), ElementsAre(0.5, 0.75));
    EXPECT_THAT(notes, ElementsAre("key 65 down of 1", "move 10,20 of 2"));
}

TEST_F(Desktop, MovesTheCursorByAbsoluteMovesAlone) {
    moveMouseAbsolute(300, 400);
    moveMouseRelative(7, 7);
    sendMouseButton(mouse_flag::leftDown);
    EXPECT_EQ(platform::cursorPosition(), (platform::Point{300, 400}));
    desktop.cursorKnown = false;
    EXPECT_EQ(platform::cursorPosition(), std::nullopt);
}

TEST_F(Desktop, ShowsASmallerScreenToAThreadThatDoesNotAskForPhysicalPixels) {
    desktop.scale = 1.5;
    desktop.screen = {1920, 1080};
    desktop.cursor = {300, 600};
    desktop.isOwnWindow = [](platform::Point point) { return point == platform::Point{300, 600}; };
    EXPECT_EQ(platform::primaryScreen().cx, 1280);
    EXPECT_EQ(platform::cursorPosition(), (platform::Point{200, 400}));
    EXPECT_TRUE(platform::isOwnWindowAt({200, 400}));
    platform::enterWorkerThread();
    EXPECT_EQ(platform::primaryScreen().cx, 1920);
    EXPECT_EQ(platform::cursorPosition(), (platform::Point{300, 600}));
    EXPECT_TRUE(platform::isOwnWindowAt({300, 600}));
    EXPECT_FALSE(platform::isOwnWindowAt({200, 400}));
}

// The engine hands out parts of 65536 of the screen; the log must tell the pixel again.
TEST_F(Desktop, TellsThePixelOfEveryAbsoluteMove) {
    for (const auto& [cx, cy] : {std::pair{1920, 1080}, {1366, 768}, {3840, 2160}, {1, 1}}) {
        desktop.screen = {cx, cy};
        for (const std::int32_t pixel : {-4000, -1, 0, 1, 2, 333, cx - 1, cx, 8000}) {
            desktop.log.clear();
            moveMouseAbsolute(pixel, pixel / 2);
            EXPECT_EQ(desktop.log[0].text,
                      "move " + std::to_string(pixel) + ',' + std::to_string(pixel / 2));
        }
    }
}

TEST_F(Desktop, DescribesEveryKindOfMouseRecord) {
    const auto text = [](std::uint32_t flags, std::uint32_t data = 0) {
        return describe(platform::MouseInput{.dx = 3, .dy = -4, .mouseData = data, .flags = flags});
    };
    EXPECT_EQ(text(0x0001), "move by 3,-4");
    EXPECT_EQ(text(0x0800, 0xFFFFFF88), "wheel -120");
    EXPECT_EQ(text(0), "no button");
    EXPECT_EQ(text(0x0002), "left down");
    EXPECT_EQ(text(0x0004), "left up");
    EXPECT_EQ(text(0x0008), "right down");
    EXPECT_EQ(text(0x0010), "right up");
    EXPECT_EQ(text(0x0020), "middle down");
    EXPECT_EQ(text(0x0040), "middle up");
    EXPECT_EQ(text(0x0080), "side down");
    EXPECT_EQ(text(0x0006), "flags 6") << "two buttons in one record are none of these";
}

TEST_F(Desktop, DescribesEveryKindOfKeyRecord) {
    const auto text = [](std::uint16_t scan, std::uint32_t flags) {
        return describe(platform::KeyInput{.scan = scan, .flags = flags});
    };
    EXPECT_EQ(text(255 - 65, 8), "key 65 down");
    EXPECT_EQ(text(255 - 65, 10), "key 65 up");
    EXPECT_EQ(text(255 - 37, 9), "key 37 ext down");
    EXPECT_EQ(text(255 - 37, 11), "key 37 ext up");
    EXPECT_EQ(text(0, 8), "scan 0 down");
}

TEST_F(Desktop, HasALayoutInWhichNoTwoKeysShareAScanCodeButTheTwins) {
    std::set<std::uint32_t> scans;
    for (std::uint32_t vk = 1; vk <= 254; ++vk) {
        const auto scan = platform::scanCode(vk);
        if (vk == 7 || vk == 163 || vk == 165) continue;
        EXPECT_TRUE(scans.insert(scan).second) << vk;
        EXPECT_NE(scan, 0U) << vk;
    }
    EXPECT_EQ(platform::scanCode(163), platform::scanCode(162));
    EXPECT_EQ(platform::scanCode(165), platform::scanCode(164));
    EXPECT_EQ(platform::scanCode(7), 0U);
    EXPECT_EQ(platform::scanCode(256), 0U);
    EXPECT_EQ(desktop.scanLookups, 260U);
}

TEST_F(Desktop, NamesKeysByScanCodeAndExtendedBit) {
    desktop.keyNames = {{65, "A"}, {37, "Left"}, {162, "Ctrl"}};
    EXPECT_EQ(keyName(65), "A");
    EXPECT_EQ(keyName(37), "Left");
    EXPECT_EQ(keyName(163), "Ctrl");
    EXPECT_EQ(keyName(66), "Key[66]");
    EXPECT_EQ(platform::systemKeyName((255 - 37) << 16), "") << "without the extended bit";
}

TEST_F(Desktop, RunsTheSameWorkTwiceInTheSameWay) {
    const auto run = [] {
        resetEngine();
        passOnEverySignal();
        requestAt(0.01, requests.clickerToggle);
        desktop.at(0.2, [] { toolSettings.stype = 1; });
        quitAt(60);
        runAutoClicker();
        return std::pair(desktop.texts(), desktop.times());
    };
    const auto first = run();
    EXPECT_GT(first.first.size(), 10'000U);
    EXPECT_EQ(run(), first);
}

}  // namespace
}  // namespace ravelin::test
