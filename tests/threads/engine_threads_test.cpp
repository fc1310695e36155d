// The engine with real threads: nothing races, nothing waits for what never comes, and everything
// ends at quit.
#include <gmock/gmock.h>

#include "input/capture.h"
#include "input/key_spammer.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/status.h"
#include "input/tool_settings.h"
#include "tests/support/macro_builder.h"
#include "tests/threads/engine_threads.h"
#include "tests/threads/live_platform.h"

namespace ravelin::test {
namespace {

EventList snapshotOfMacro() {
    const std::lock_guard lock(profileMutex);
    const Profile* profile = lockedCurrentProfile();
    return profile != nullptr ? profile->events : EventList();
}

void setMacro(EventList events) {
    const std::lock_guard lock(profileMutex);
    profiles.at(0).events = std::move(events);
}

void press(std::uint32_t vk) {
    onKeyboardEvent({vk, true, false});
    onKeyboardEvent({vk, false, false});
}

void realInput(int i) {
    onMouseEvent({.kind = MouseEvent::Kind::move, .point = {i, -i}});
    onMouseEvent({.kind = MouseEvent::Kind::press, .button = 1, .point = {i, i}});
    onMouseEvent({.kind = MouseEvent::Kind::release, .button = 1, .point = {i, i}});
    onMouseEvent({.kind = MouseEvent::Kind::wheel, .point = {}, .wheel = i});
    press(65);
}

constexpr std::uint32_t keyRec = 119;
constexpr std::uint32_t keyPlay = 118;
constexpr std::uint32_t keyClicker = 117;
constexpr std::uint32_t keySpam = 120;
constexpr std::uint32_t keyUnlock = 121;

TEST_F(EngineThreads, ClickFromTheHotkeyUntilTheHotkey) {
    toolSettings.sms = 1;
    start();
    press(keyClicker);
    await([] { return sentCounts.mouse.load() >= 40; });
    press(keyClicker);
    await([] { return !engine.autoClicking.load(); });
    quit();
    // Presses with their releases, and the three releases of the stop.
    EXPECT_EQ(sentCounts.mouse.load() % 2, 1U);
}

TEST_F(EngineThreads, ClickAsOftenAsIsSetAndAgainAfterTheNextStart) {
    toolSettings.sms = 1;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 5;
    start();
    for (std::uint64_t run = 1; run <= 3; ++run) {
        const auto before = sentCounts.mouse.load();
        press(keyClicker);
        await([before] { return sentCounts.mouse.load() > before; });
        // Only an idle clicker forgets its count: nothing comes behind that.
        await([] { return !engine.autoClicking.load() && engine.clickCount.load() == 0; });
        EXPECT_EQ(sentCounts.mouse.load(), run * 10);
    }
}

TEST_F(EngineThreads, EndFromTheLongestWaits) {
    toolSettings.sh = toolSettings.ksh = 1000;
    toolSettings.tloop = true;
    toolSettings.tloopMs = 1'000'000'000;
    setMacro({keyEvent(0, 65, true)});
    start();
    for (const auto key : {keyClicker, keySpam, keyPlay})
        press(key);
    // A click, a round of the key spammer and the macro's key, and then everything waits.
    await([] { return sentCounts.mouse.load() == 2 && sentCounts.keys.load() == 3; });
    quit();
}

TEST_F(EngineThreads, EndWhileAMacroWaitsForAnEvent) {
    setMacro({keyEvent(0, 65, true), keyEvent(1e6, 65, false)});
    start();
    press(keyPlay);
    await([] { return sentCounts.keys.load() == 1; });
    quit();
    EXPECT_EQ(sentCounts.keys.load(), 1U);
}

TEST_F(EngineThreads, EndWhileTheyAreIdle) {
    start();
    quit();
}

TEST_F(EngineThreads, StopPlaybackAtTheLock) {
    setMacro({keyEvent(0, 65, true), keyEvent(1e6, 65, false)});
    start();
    press(keyPlay);
    await([] { return sentCounts.keys.load() == 1; });
    press(keyUnlock);
    await([] { return sentCounts.mouse.load() == 2 && !engine.playing.load(); });
}

TEST_F(EngineThreads, RecordWhileOthersTakeSnapshots) {
    start();
    press(keyRec);
    await([] { return engine.recording.load(); });
    std::atomic<bool> recorded{false};
    // The background save and the page's poll.
    alongside([&] {
        std::size_t seen = 0;
        while (!recorded.load()) {
            const EventList events = snapshotOfMacro();
            ASSERT_GE(events.size(), seen);
            seen = events.size();
            double last = 0.0;
            for (const UnifiedEvent& event : events) {
                ASSERT_GE(event.time, last);
                last = event.time;
            }
        }
    });
    alongside([&] {
        while (!recorded.load())
            getTrackerStatus({});
    });
    constexpr int rounds = 2000;
    for (int i = 1; i <= rounds; ++i)
        realInput(i);
    recorded = true;
    press(keyRec);
    await([] { return !engine.recording.load() && snapshotOfMacro()[0].time == 0.0; });
    quit();
    EXPECT_EQ(snapshotOfMacro().size(), 6U * rounds);
}

TEST_F(EngineThreads, RecordTheToolsBesideTheHooks) {
    toolSettings.sms = 1;
    start();
    press(keyRec);
    await([] { return engine.recording.load(); });
    for (int i = 0; i < 50; ++i) {
        press(keyClicker);
        realInput(i + 1);
        await([i] { return engine.autoClicking.load() == (i % 2 == 0); });
    }
    press(keyRec);
    await([] { return !engine.recording.load() && snapshotOfMacro()[0].time == 0.0; });
    int tools = 0;
    double last = 0.0;
    for (const UnifiedEvent& event : snapshotOfMacro()) {
        tools += event.is(EventKind::Tool) ? 1 : 0;
        EXPECT_GE(event.time, last);
        last = event.time;
    }
    EXPECT_EQ(tools, 50);
}

TEST_F(EngineThreads, PlayWhileTheMacroChanges) {
    toolSettings.tloop = true;
    toolSettings.tloopMs = 0;
    setMacro({keyEvent(0, 65, true)});
    start();
    press(keyPlay);
    std::atomic<bool> done{false};
    // The page, which clears, imports and switches.
    alongside([&] {
        while (!done.load()) {
            setMacro({keyEvent(0, 65, true), keyEvent(0, 65, false), moveEvent(0, 1, 1)});
            setMacro({wheelEvent(0, 120), keyEvent(0.0001, 66, true)});
        }
    });
    await([] { return sentCounts.keys.load() >= 500; });
    press(keyPlay);
    await([] { return !engine.playing.load(); });
    done = true;
    quit();
}

TEST_F(EngineThreads, TakeSettingsWhileTheyWork) {
    start();
    press(keyClicker);
    press(keySpam);
    std::atomic<bool> done{false};
    alongside([&] {
        while (!done.load()) {
            updateSpammer("0,0,0,1,0,0,1,10,1");
            updateSpammer("0,0,0,2,1,0,1,10,0");
            updateKeySpam("0,0,0,1,1,10");
            setKeySpamChordMode("1");
            setKeySpamChordMode("0");
        }
    });
    alongside([&] {
        while (!done.load()) {
            getSettings();
            getTrackerStatus({"panel-keyspam"});
        }
    });
    for (const auto* slot : {"keyspamtarget", "rec", "keyspamtarget"}) {
        reassignKey(slot);
        press(66);
        await([] { return armedSlotName().empty(); });
    }
    await([] { return sentCounts.mouse.load() > 50 && sentCounts.keys.load() > 50; });
    for (const auto* index : {"2", "1", "0"})
        removeKeySpamTarget(index);
    await([] { return !engine.keySpamming.load(); });
    done = true;
    quit();
}

TEST_F(EngineThreads, BearAStormOfRequests) {
    toolSettings.sms = toolSettings.ksms = 1;
    toolSettings.tloop = true;
    toolSettings.tloopMs = 0;
    setMacro({moveEvent(0, 1, 1), toolEvent(0, toolAutoClicker, true), keyEvent(0.001, 65, true),
              toolEvent(0.001, toolAutoClicker, false)});
    start();
    for (auto* request :
         {&requests.clickerStart, &requests.clickerStop, &requests.keySpamStart,
          &requests.keySpamStop, &requests.continueRecording, &requests.undoContinuation})
        alongside([request] {
            for (int i = 0; i < 300; ++i)
                postRequest(*request);
        });
    for (int i = 0; i < 300; ++i) {
        press(std::array{keyRec, keyPlay, keyClicker, keySpam,
                         keyUnlock}[static_cast<std::size_t>(i % 5)]);
        realInput(i);
        onRawMotion(i, i);
        if (i % 50 == 0) onSessionLeft();
    }
    quit();
    EXPECT_FALSE(engine.recording.load() && engine.playing.load());
}

}  // namespace
}  // namespace ravelin::test
