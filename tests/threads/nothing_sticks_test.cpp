// What the tools press is released, whatever is stopped, changed or ended while they work: random
// schedules of a user's deeds on the engine with its real threads.
#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "input/capture.h"
#include "input/key_spammer.h"
#include "input/playback_gate.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"
#include "tests/support/macro_builder.h"
#include "tests/threads/engine_threads.h"
#include "tests/threads/live_platform.h"

namespace ravelin::test {
namespace {

constexpr std::uint32_t keyA = 65;

void press(std::uint32_t vk) {
    onKeyboardEvent({.vk = vk, .down = true});
    onKeyboardEvent({.vk = vk, .down = false});
}

class Dice {
  public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}
    std::uint32_t below(std::uint32_t n) { return static_cast<std::uint32_t>(engine_() % n); }
    // Mostly a few microseconds, so that deeds fall between two steps of a worker.
    void pause() {
        const auto end = std::chrono::steady_clock::now() +
                         std::chrono::microseconds(below(below(8) ? 60 : 2500));
        while (std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
    }

  private:
    std::mt19937_64 engine_;
};

// Clicks with both buttons and switches the tools; no keys, which a stop leaves as they are.
EventList clickingMacro() {
    EventList events;
    for (int i = 0; i < 40; ++i) {
        const double t = i * 0.0004;
        events.append(buttonEvent(t, mouse_flag::leftDown, i, i));
        events.append(buttonEvent(t + 0.0001, mouse_flag::rightDown, i, i));
        if (i % 8 == 0) events.append(toolEvent(t, toolAutoClicker, i % 16 == 0));
        if (i % 8 == 4) events.append(toolEvent(t, toolKeySpammer, i % 16 == 4));
        events.append(buttonEvent(t + 0.0002, mouse_flag::leftUp, i, i));
        events.append(buttonEvent(t + 0.0003, mouse_flag::rightUp, i, i));
    }
    return events;
}

class NothingSticks : public EngineThreads {
  protected:
    void preparedBy(Dice& dice) {
        toolSettings.sms = toolSettings.ksms = 1;
        toolSettings.tloop = dice.below(2) == 0;
        toolSettings.tloopMs = static_cast<std::int32_t>(dice.below(2));
        toolSettings.sbtn = static_cast<std::int32_t>(dice.below(3));
        toolSettings.stype = dice.below(4) == 0 ? 1 : 0;
        engine.stopToolsWithMacro = dice.below(2) == 0;
        setTargets(dice);
        const std::lock_guard lock(profileMutex);
        profiles.at(0).events = clickingMacro();
        profiles.push_back(
            Profile{"other", "0,0,0,1,1,0,1,10,0,0,0,0,0,0,1,1,10,70,70|71|72,1", clickingMacro()});
    }
    static void setTargets(Dice& dice) {
        const std::uint32_t count = 1 + dice.below(3);
        for (std::uint32_t i = 0; i < count; ++i)
            keySpamTargets.keys[i] = keyA + i;
        keySpamTargets.count = static_cast<std::int32_t>(count);
        keySpamTargets.chord = dice.below(2) == 0;
    }
    static void doSomething(Dice& dice) {
        switch (dice.below(13)) {
            case 0:
            case 1:
                return press(hotkeys.play.load());
            case 2:
                return press(hotkeys.autoClicker.load());
            case 3:
                return press(hotkeys.keySpam.load());
            case 4:
                return press(hotkeys.unlock.load());
            case 5:
                return postRequest(requests.clickerStart);
            case 6:
                return postRequest(requests.keySpamStart);
            case 7:
                return postRequest(requests.stopPlayback);
            case 8:
                return removeKeySpamTarget(dice.below(2) == 0 ? "0" : "1");
            case 9:
                return setKeySpamChordMode(dice.below(2) == 0 ? "1" : "0");
            case 10:
                return switchProfile(dice.below(2) == 0 ? "[\"0\"]" : "[\"1\"]");
            case 11:
                return clearProfile();
            default:
                return updateSpammer(dice.below(2) == 0 ? "0,0,0,1,0,0,1,10,0"
                                                        : "0,0,0,1,1,1,1,10,0");
        }
    }
};

// More by hand: RAVELIN_SCHEDULES=10000 ravelin_thread_tests --gtest_filter=NothingSticks.*
std::uint32_t scheduleCount() {
    const char* text = std::getenv("RAVELIN_SCHEDULES");
    return text != nullptr ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : 300;
}

TEST_F(NothingSticks, AfterRandomStopsChangesAndQuits) {
    for (std::uint32_t seed = 0; seed < scheduleCount(); ++seed) {
        SCOPED_TRACE(seed);
        restart();
        Dice dice(seed);
        preparedBy(dice);
        start();
        for (std::uint32_t deed = 0; deed < 12; ++deed) {
            doSomething(dice);
            dice.pause();
        }
        quit();
        ASSERT_EQ(heldInput.names(), "");
    }
}

// Every stop sends left up and right up, and nothing of the macro after them.
TEST_F(NothingSticks, BehindTheStopsOfAPlayedMacro) {
    toolSettings.tloop = true;
    toolSettings.tloopMs = 0;
    engine.stopToolsWithMacro = false;
    {
        const std::lock_guard lock(profileMutex);
        profiles.at(0).events = {
            buttonEvent(0, mouse_flag::leftDown, 1, 1), buttonEvent(0, mouse_flag::rightDown, 1, 1),
            buttonEvent(0, mouse_flag::leftUp, 1, 1), buttonEvent(0, mouse_flag::rightUp, 1, 1)};
    }
    start();
    Dice dice(1);
    for (int stop = 0; stop < 300; ++stop) {
        const auto before = sentCounts.mouse.load();
        postRequest(requests.startPlayback);
        await([before] { return sentCounts.mouse.load() > before + 4; });
        dice.pause();
        postRequest(requests.stopPlayback);
        await([] { return !engine.playing.load(); });
        // The stop takes the gate before it says that nothing plays, and gives it back after the
        // releases.
        playbackGate.whileItGoesOn(0, [] {});
        const auto after = sentCounts.mouse.load();
        ASSERT_EQ(heldInput.names(), "") << stop;
        dice.pause();
        ASSERT_EQ(sentCounts.mouse.load(), after) << stop;
    }
}

TEST_F(NothingSticks, AndEveryStopReleasesOnce) {
    toolSettings.tloop = true;
    toolSettings.tloopMs = 0;
    {
        const std::lock_guard lock(profileMutex);
        profiles.at(0).events = {keyEvent(0, keyA, true), keyEvent(0, keyA, false)};
    }
    start();
    constexpr std::uint64_t stops = 200;
    for (std::uint64_t stop = 0; stop < stops; ++stop) {
        const auto before = sentCounts.keys.load();
        postRequest(requests.startPlayback);
        await([before] { return sentCounts.keys.load() > before; });
        // One of them is a stop, the others find nothing to stop.
        for (int i = 0; i < 3; ++i)
            postRequest(requests.stopPlayback);
        await([] { return !engine.playing.load() && requests.stopPlayback.load() == 0; });
    }
    quit();
    EXPECT_EQ(sentCounts.leftUps.load(), stops);
    EXPECT_EQ(sentCounts.rightUps.load(), stops);
    EXPECT_EQ(sentCounts.mouse.load(), 2 * stops);
}

}  // namespace
}  // namespace ravelin::test
