// The profiles with real threads: what the page, the pipe, the hooks, the engine and the background
// save do with them at the same time.
#include <gmock/gmock.h>

#include "input/capture.h"
#include "input/key_spammer.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/status.h"
#include "input/tool_settings.h"
#include "persistence/session_file.h"
#include "tests/support/temp_folder.h"
#include "tests/threads/engine_threads.h"
#include "tests/threads/live_platform.h"

namespace ravelin::test {
namespace {

class ProfileThreads : public EngineThreads {
  protected:
    ProfileThreads() { sessionPath = folder_.file("session.dat"); }
    ~ProfileThreads() override {
        quit();
        sessionPath.clear();
    }

    // As often as it takes until the work in front is done.
    void alongsideUntilDone(std::function<void()> round) {
        alongside([this, round = std::move(round)] {
            while (!done_.load())
                round();
        });
    }
    void finish() {
        done_ = true;
        quit();
    }

    static std::size_t profileCount() {
        const std::lock_guard lock(profileMutex);
        return profiles.size();
    }

  private:
    TempFolder folder_;
    std::atomic<bool> done_{false};
};

void press(std::uint32_t vk) {
    onKeyboardEvent({vk, true, false});
    onKeyboardEvent({vk, false, false});
}

void click(std::int32_t x, std::int32_t y) {
    onMouseEvent({.kind = MouseEvent::Kind::press, .button = 1, .point = {x, y}});
    onMouseEvent({.kind = MouseEvent::Kind::release, .button = 1, .point = {x, y}});
}

constexpr std::uint32_t keyRec = 119;
constexpr std::uint32_t keyClicker = 117;
constexpr std::uint32_t keySpam = 120;

TEST_F(ProfileThreads, BearThePageTheHooksAndTheSaveAtOnce) {
    toolSettings.sms = toolSettings.ksms = 1;
    engine.stopToolsWithMacro = false;
    start();
    press(keyClicker);
    press(keySpam);
    alongsideUntilDone(saveSession);
    alongsideUntilDone([] { getTrackerStatus({}); });
    // The pipe of a detached panel.
    alongsideUntilDone([] {
        updateSpammer("0,0,0,1,2,0,1,10,1");
        updateKeySpam("0,0,0,1,1,10");
        setKeySpamChordMode("1");
    });
    // The page.
    alongsideUntilDone([] {
        addProfile("[\"Second\"]");
        addProfile("[\"Third\"]");
        switchProfile("[\"0\"]");
        pickLocation();
        switchProfile("[\"1\"]");
        clearProfile();
        deleteProfile();
        getProfiles();
    });
    for (int i = 0; i < 500; ++i) {
        if (i % 25 == 0) press(keyRec);
        press(65);
        click(i, -i);
        onMouseEvent({.kind = MouseEvent::Kind::move, .point = {i, i}});
    }
    await([] { return sentCounts.mouse.load() > 50 && sentCounts.keys.load() > 50; });
    finish();
    const std::lock_guard lock(profileMutex);
    EXPECT_THAT(profiles.size(), testing::AllOf(testing::Ge(1U), testing::Le(profileCap)));
    EXPECT_THAT(currentProfile,
                testing::AllOf(testing::Ge(0), testing::Lt(static_cast<int>(profiles.size()))));
    EXPECT_EQ(profiles[0].name, defaultProfileName);
}

TEST_F(ProfileThreads, KeepAPickedPlaceAtOnce) {
    start();
    alongsideUntilDone(saveSession);
    alongsideUntilDone([] { getSettings(); });
    for (int i = 1; i <= 300; ++i) {
        pickLocation();
        click(i, -i);
        EXPECT_FALSE(capture.pickingLocation.load());
        const auto place = ',' + std::to_string(i) + ",-" + std::to_string(i) + ',';
        const std::lock_guard lock(profileMutex);
        EXPECT_THAT(profiles[0].settingsLine, testing::HasSubstr(place));
    }
    finish();
}

TEST_F(ProfileThreads, RecordIntoTheProfileThatIsCurrent) {
    addProfile("[\"Second\"]");
    start();
    press(keyRec);
    await([] { return engine.recording.load(); });
    alongsideUntilDone([] {
        switchProfile("[\"0\"]");
        switchProfile("[\"1\"]");
    });
    constexpr std::size_t presses = 2000;
    for (std::size_t i = 0; i < presses; ++i)
        press(65);
    finish();
    // Each event is in one of them, none in both or in neither.
    EXPECT_EQ(profiles[0].events.size() + profiles[1].events.size(), 2 * presses);
}

TEST_F(ProfileThreads, SaveWhatTheyHoldWheneverNobodyElseHoldsThem) {
    start();
    press(keyRec);
    await([] { return engine.recording.load(); });
    alongsideUntilDone(saveSession);
    alongsideUntilDone(saveSessionFromCrash);
    alongsideUntilDone([] {
        addProfile("[\"Second\"]");
        switchProfile("[\"0\"]");
    });
    for (int i = 0; i < 1000; ++i)
        press(65);
    await([] { return profileCount() == profileCap; });
    press(keyRec);
    await([] { return !engine.recording.load(); });
    finish();
    saveSession();
    const auto held = std::exchange(profiles, {});
    ASSERT_TRUE(loadSession());
    ASSERT_EQ(profiles.size(), held.size());
    for (std::size_t i = 0; i < held.size(); ++i) {
        EXPECT_EQ(profiles[i].name, held[i].name);
        EXPECT_EQ(profiles[i].events.size(), held[i].events.size());
    }
}

}  // namespace
}  // namespace ravelin::test
