// What the real workers put into the desktop's input, event by event, as a hook sees it.
#include <gmock/gmock.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "input/auto_clicker.h"
#include "input/command_pass.h"
#include "input/engine_state.h"
#include "input/key_spammer.h"
#include "input/platform.h"
#include "input/player.h"
#include "input/requests.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/support/macro_builder.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/hook_probe.h"

namespace ravelin {
namespace {

using namespace test;
using testing::ElementsAreArray;
using Texts = std::vector<std::string>;

std::string textOf(const SeenKey& key) {
    std::string text = std::to_string(key.scan);
    if (key.extended) text += " extended";
    return text + (key.up ? " up" : " down");
}

std::string textOf(const SeenMouse& event) {
    switch (event.message) {
        case WM_MOUSEMOVE:
            return "move";
        case WM_LBUTTONDOWN:
            return "left down";
        case WM_LBUTTONUP:
            return "left up";
        case WM_RBUTTONDOWN:
            return "right down";
        case WM_RBUTTONUP:
            return "right up";
        case WM_MBUTTONDOWN:
            return "middle down";
        case WM_MBUTTONUP:
            return "middle up";
        case WM_MOUSEWHEEL:
            return "wheel " + std::to_string(static_cast<std::int16_t>(HIWORD(event.mouseData)));
        default:
            return "message " + std::to_string(event.message);
    }
}

// A key as the desktop sees it: by its scan code, for Wine 8 tells no virtual key with one.
std::string key(std::uint32_t vk, bool down) {
    const bool extended = vk >= VK_PRIOR && vk <= VK_DOWN;
    return std::to_string(platform::scanCode(vk)) + (extended ? " extended" : "") +
           (down ? " down" : " up");
}

class WorkerTraffic : public EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        // Workers that are idle have set their counts to nothing. One that first looks after its
        // start would find the start's wake-up once more, and play a second round at once.
        engine.clickCount = engine.pressCount = 1;
        for (auto* worker : {runAutoClicker, runKeySpammer, runPlayer, runCommandThread})
            threads_.emplace_back(worker);
        ASSERT_TRUE(eventually([] { return engine.clickCount == 0 && engine.pressCount == 0; }));
    }
    void TearDown() override {
        engine.running.exchange(false);
        platform::signal(platform::Event::quit);
        for (auto& thread : threads_)
            thread.join();
        engine.running.exchange(true);
        EngineTest::TearDown();
    }

    static void setTargets(std::initializer_list<std::uint32_t> keys) {
        std::size_t count = 0;
        for (const auto vk : keys)
            keySpamTargets.keys[count++] = vk;
        keySpamTargets.count = static_cast<std::int32_t>(count);
    }
    static void setMacro(EventList events) {
        const std::lock_guard lock(profileMutex);
        profiles.at(0).events = std::move(events);
    }

    // All keys from the request until the key spammer is idle again.
    Texts keysOfARun() {
        postRequest(requests.keySpamStart);
        EXPECT_TRUE(keysSeen(1));
        EXPECT_TRUE(eventually([] { return engine.pressCount == 0 && !engine.keySpamming; }));
        return keys();
    }
    // All buttons from the request until the clicker is idle again.
    Texts buttonsOfARun() {
        postRequest(requests.clickerStart);
        EXPECT_TRUE(buttonsSeen(1));
        EXPECT_TRUE(eventually([] { return engine.clickCount == 0 && !engine.autoClicking; }));
        return mouse();
    }
    // Until something of it has been seen and the player is idle again.
    void playToTheEnd() {
        postRequest(requests.playToggle);
        EXPECT_TRUE(eventually(
            [this] { return !probe_.keys.all().empty() || !probe_.mouse.all().empty(); }));
        EXPECT_TRUE(eventually([] { return !engine.playing.load(); }));
    }

    bool keysSeen(std::size_t count) {
        return probe_.keys.await([=](const auto& seen) { return seen.size() >= count; });
    }
    bool buttonsSeen(std::size_t count) {
        return probe_.mouse.await([=](const auto& seen) {
            return static_cast<std::size_t>(
                       std::count_if(seen.begin(), seen.end(), [](const SeenMouse& event) {
                           return event.message != WM_MOUSEMOVE;
                       })) >= count;
        });
    }
    // What was seen so far, all of it sent by a program that left no mark.
    Texts keys() const { return textsOf(probe_.keys.all()); }
    // A system may tell a hook more than once that the cursor is where it is.
    Texts mouse() const {
        auto events = probe_.mouse.all();
        const auto again = [](const SeenMouse& a, const SeenMouse& b) {
            return a.message == WM_MOUSEMOVE && b.message == WM_MOUSEMOVE &&
                   a.point.x == b.point.x && a.point.y == b.point.y;
        };
        events.erase(std::unique(events.begin(), events.end(), again), events.end());
        return textsOf(events);
    }

    // Nothing of this reaches a program.
    HookProbe probe_{HookProbe::Mode::swallowInjected};

  private:
    template <class Event>
    static Texts textsOf(const std::vector<Event>& events) {
        Texts texts;
        for (const auto& event : events) {
            EXPECT_TRUE(event.injected);
            EXPECT_EQ(event.extra, 0U);
            texts.push_back(textOf(event));
        }
        return texts;
    }

    std::vector<std::thread> threads_;
};

TEST_F(WorkerTraffic, AChordPressesAllKeysBeforeItReleasesAny) {
    setTargets({VK_LCONTROL, 'C', VK_LEFT});
    keySpamTargets.chord = true;
    toolSettings.ksRptMode = 0;
    toolSettings.ksRptTimes = 3;
    Texts expected;
    for (int round = 0; round < 3; ++round)
        for (const bool down : {true, false})
            for (const auto vk : {VK_LCONTROL, int{'C'}, VK_LEFT})
                expected.push_back(key(static_cast<std::uint32_t>(vk), down));
    // The count is reached, and every key is released once more.
    for (const auto vk : {VK_LCONTROL, int{'C'}, VK_LEFT})
        expected.push_back(key(static_cast<std::uint32_t>(vk), false));
    EXPECT_THAT(keysOfARun(), ElementsAreArray(expected));
}

TEST_F(WorkerTraffic, TurnsPressAndReleaseOneKeyAfterAnother) {
    setTargets({'A', VK_HOME, 'C'});
    toolSettings.ksRptMode = 0;
    toolSettings.ksRptTimes = 4;
    Texts expected;
    for (const auto vk : {int{'A'}, VK_HOME, int{'C'}, int{'A'}})
        for (const bool down : {true, false})
            expected.push_back(key(static_cast<std::uint32_t>(vk), down));
    for (const auto vk : {int{'A'}, VK_HOME, int{'C'}})
        expected.push_back(key(static_cast<std::uint32_t>(vk), false));
    EXPECT_THAT(keysOfARun(), ElementsAreArray(expected));
}

TEST_F(WorkerTraffic, ANewRunGoesOnWithTheKeyBehindTheLast) {
    setTargets({'A', 'B', 'C'});
    toolSettings.ksRptMode = 0;
    toolSettings.ksRptTimes = 1;
    for (const char first : {'A', 'B', 'C', 'A'}) {
        probe_.keys.clear();
        const auto vk = static_cast<std::uint32_t>(first);
        EXPECT_THAT(keysOfARun(),
                    ElementsAreArray(Texts{key(vk, true), key(vk, false), key('A', false),
                                           key('B', false), key('C', false)}));
    }
}

TEST_F(WorkerTraffic, AStopReleasesEveryKeyOfTheList) {
    setTargets({'A', 'B'});
    toolSettings.ksh = 100;
    postRequest(requests.keySpamStart);
    ASSERT_TRUE(keysSeen(2));
    postRequest(requests.keySpamStop);
    ASSERT_TRUE(keysSeen(4));
    EXPECT_THAT(keys(), ElementsAreArray(Texts{key('A', true), key('A', false), key('A', false),
                                               key('B', false)}));
}

TEST_F(WorkerTraffic, ClicksAreAPressAndItsReleaseAsOftenAsIsSet) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 3;
    const std::pair<std::int32_t, std::string> buttons[] = {
        {0, "left"}, {1, "right"}, {2, "middle"}};
    for (const auto& [sbtn, name] : buttons) {
        probe_.mouse.clear();
        toolSettings.sbtn = sbtn;
        const Texts click{name + " down", name + " up"};
        Texts expected;
        for (int i = 0; i < 3; ++i)
            expected.insert(expected.end(), click.begin(), click.end());
        EXPECT_THAT(buttonsOfARun(), ElementsAreArray(expected));
    }
}

TEST_F(WorkerTraffic, ADoubleClickIsTwoAndCountsOnce) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 2;
    toolSettings.stype = 1;
    Texts expected;
    for (int i = 0; i < 4; ++i)
        expected.insert(expected.end(), {"left down", "left up"});
    EXPECT_THAT(buttonsOfARun(), ElementsAreArray(expected));
}

TEST_F(WorkerTraffic, AFixedPointIsGoneToBeforeEveryClick) {
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = 2;
    toolSettings.locMode = 1;
    toolSettings.fixedX = 321;
    toolSettings.fixedY = 234;
    EXPECT_THAT(buttonsOfARun(), ElementsAreArray(Texts{"move", "left down", "left up", "move",
                                                        "left down", "left up"}));
    for (const SeenMouse& event : probe_.mouse.all()) {
        if (event.message != WM_MOUSEMOVE) continue;
        // 65536ths of the screen, truncated on both ways.
        EXPECT_NEAR(event.point.x, 321, 1);
        EXPECT_NEAR(event.point.y, 234, 1);
    }
}

TEST_F(WorkerTraffic, AStoppedClickerReleasesAllThreeButtons) {
    toolSettings.sh = 100;
    toolSettings.sbtn = 1;
    postRequest(requests.clickerStart);
    ASSERT_TRUE(buttonsSeen(2));
    postRequest(requests.clickerStop);
    ASSERT_TRUE(buttonsSeen(5));
    EXPECT_THAT(mouse(), ElementsAreArray(
                             Texts{"right down", "right up", "left up", "right up", "middle up"}));
}

TEST_F(WorkerTraffic, PlaybackSendsEveryEventInItsOrder) {
    constexpr std::uint32_t leftDown = 2;
    constexpr std::uint32_t leftUp = 4;
    constexpr std::uint32_t middleDown = 32;
    setMacro({buttonEvent(0, leftDown, 200, 200), buttonEvent(0.02, leftUp, 210, 210),
              keyEvent(0.03, 'A', true), keyEvent(0.04, VK_LEFT, true), wheelEvent(0.05, -120),
              keyEvent(0.06, VK_LEFT, false), keyEvent(0.07, 'A', false),
              buttonEvent(0.08, middleDown, 220, 220)});
    playToTheEnd();
    EXPECT_THAT(keys(), ElementsAreArray(Texts{key('A', true), key(VK_LEFT, true),
                                               key(VK_LEFT, false), key('A', false)}));
    auto buttons = mouse();
    std::erase(buttons, "move");
    // A pass that ends by itself releases nothing.
    EXPECT_THAT(buttons,
                ElementsAreArray(Texts{"left down", "left up", "wheel -120", "middle down"}));
}

TEST_F(WorkerTraffic, PlaybackGoesAlongTheWayBetweenTwoMoves) {
    setMacro({moveEvent(0, 100, 100), moveEvent(1, 500, 300)});
    playToTheEnd();
    const auto seen = probe_.mouse.all();
    ASSERT_GT(seen.size(), 4U) << "more than where it begins and ends";
    for (std::size_t i = 1; i < seen.size(); ++i) {
        EXPECT_EQ(seen[i].message, UINT{WM_MOUSEMOVE});
        EXPECT_GE(seen[i].point.x, seen[i - 1].point.x);
        EXPECT_GE(seen[i].point.y, seen[i - 1].point.y);
    }
    EXPECT_NEAR(seen.front().point.x, 100, 1);
    EXPECT_NEAR(seen.back().point.x, 500, 1);
    EXPECT_NEAR(seen.back().point.y, 300, 1);
}

TEST_F(WorkerTraffic, StoppedPlaybackReleasesLeftAndRightOnceAndGoesNoFurther) {
    setMacro({keyEvent(0, 'A', true), keyEvent(1e6, 'A', false)});
    postRequest(requests.playToggle);
    ASSERT_TRUE(keysSeen(1));
    postRequest(requests.playToggle);
    ASSERT_TRUE(buttonsSeen(2));
    EXPECT_TRUE(eventually([] { return !engine.playing.load(); }));
    EXPECT_THAT(mouse(), ElementsAreArray(Texts{"left up", "right up"}));
    EXPECT_THAT(keys(), ElementsAreArray(Texts{key('A', true)}));
}

TEST_F(WorkerTraffic, AMacroStartsAndStopsTheTools) {
    toolSettings.sh = toolSettings.ksh = 100;
    engine.stopToolsWithMacro = false;
    setMacro({toolEvent(0, toolAutoClicker, true), toolEvent(0, toolKeySpammer, true)});
    postRequest(requests.playToggle);
    ASSERT_TRUE(buttonsSeen(2));
    ASSERT_TRUE(keysSeen(2));
    ASSERT_TRUE(eventually([] { return !engine.playing.load(); }));
    setMacro({toolEvent(0, toolAutoClicker, false), toolEvent(0, toolKeySpammer, false)});
    postRequest(requests.playToggle);
    ASSERT_TRUE(buttonsSeen(5));
    ASSERT_TRUE(keysSeen(3));
    EXPECT_THAT(mouse(), ElementsAreArray(
                             Texts{"left down", "left up", "left up", "right up", "middle up"}));
    EXPECT_THAT(keys(), ElementsAreArray(Texts{key(VK_SPACE, true), key(VK_SPACE, false),
                                               key(VK_SPACE, false)}));
}

}  // namespace
}  // namespace ravelin
