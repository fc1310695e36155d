#include "input/command_pass.h"

#include <gmock/gmock.h>

#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class CommandPass : public EngineTest {
  protected:
    static void passWith(std::initializer_list<std::reference_wrapper<Requests::Flag>> raised) {
        for (Requests::Flag& request : raised)
            raiseRequest(request);
        runCommandPass();
    }
    // The tool events of the macro as "tool 1 on".
    static Texts toolEvents() {
        Texts texts;
        for (const UnifiedEvent& event : macro())
            if (event.is(EventKind::Tool))
                texts.push_back("tool " + std::to_string(event.vk) +
                                (event.down == 1 ? " on" : " off"));
        return texts;
    }
};

TEST_F(CommandPass, ConsumesEveryRequestOnce) {
    passWith({requests.clickerToggle});
    runCommandPass();
    EXPECT_TRUE(engine.autoClicking.load());
}

TEST_F(CommandPass, LetsAStopWinOverAStartOfTheSamePass) {
    passWith({requests.clickerStart, requests.clickerStop, requests.keySpamStart,
              requests.keySpamStop, requests.startPlayback, requests.stopPlayback});
    EXPECT_FALSE(engine.autoClicking.load());
    EXPECT_FALSE(engine.keySpamming.load());
    EXPECT_FALSE(engine.playing.load());
}

TEST_F(CommandPass, ServesTheToggleBeforeTheStart) {
    engine.autoClicking = true;
    passWith({requests.clickerToggle, requests.clickerStart});
    EXPECT_TRUE(engine.autoClicking.load());
    EXPECT_EQ(desktop.texts(), (Texts{"left up", "right up", "middle up"}));
}

TEST_F(CommandPass, ServesTheRecorderBeforeThePlayer) {
    passWith({requests.recToggle, requests.playToggle});
    EXPECT_TRUE(engine.recording.load());
    EXPECT_FALSE(engine.playing.load());
}

TEST_F(CommandPass, StopsTheRecordingThatWasStartedInTheSamePass) {
    passWith({requests.startRecording, requests.stopRecording});
    EXPECT_FALSE(engine.recording.load());
}

TEST_F(CommandPass, StopsTheToolsOfAStoppedRecordingInTheSamePass) {
    engine.autoClicking = engine.keySpamming = true;
    passWith({requests.recToggle});
    passWith({requests.recToggle});
    EXPECT_FALSE(engine.autoClicking.load());
    EXPECT_FALSE(engine.keySpamming.load());
    EXPECT_EQ(desktop.texts(), (Texts{"left up", "right up", "middle up", "key 32 up"}));
    EXPECT_THAT(toolEvents(), IsEmpty()) << "the recording was over by then";
}

TEST_F(CommandPass, LeavesTheToolsRunningWhenTheyAreNotToStopWithTheMacro) {
    engine.stopToolsWithMacro = false;
    engine.autoClicking = engine.keySpamming = true;
    passWith({requests.recToggle});
    passWith({requests.recToggle});
    passWith({requests.playToggle});
    passWith({requests.playToggle});
    EXPECT_TRUE(engine.autoClicking.load());
    EXPECT_TRUE(engine.keySpamming.load());
}

TEST_F(CommandPass, StopsTheToolsOfAStoppedPlaybackInTheSamePass) {
    engine.playing = engine.autoClicking = true;
    passWith({requests.playToggle});
    EXPECT_FALSE(engine.autoClicking.load());
    EXPECT_EQ(desktop.texts(), (Texts{"left up", "right up", "left up", "right up", "middle up"}));
}

TEST_F(CommandPass, RecordsTheSwitchingOfATool) {
    engine.stopToolsWithMacro = false;
    passWith({requests.recToggle});
    passWith({requests.clickerToggle});
    passWith({requests.keySpamStart});
    passWith({requests.clickerStop, requests.keySpamToggle});
    passWith({requests.recToggle});
    EXPECT_EQ(toolEvents(), (Texts{"tool 1 on", "tool 2 on", "tool 1 off", "tool 2 off"}));
}

TEST_F(CommandPass, RecordsNoToolThatEndsThePassAsItBegan) {
    passWith({requests.recToggle});
    passWith({requests.clickerStart, requests.clickerStop});
    EXPECT_THAT(toolEvents(), IsEmpty());
}

TEST_F(CommandPass, RecordsNoToolWhileNothingIsRecorded) {
    passWith({requests.clickerStart});
    EXPECT_THAT(macro(), IsEmpty());
}

TEST_F(CommandPass, RecordsAToolThatIsStartedInThePassThatStartsTheRecording) {
    passWith({requests.recToggle, requests.clickerToggle});
    EXPECT_EQ(toolEvents(), Texts{"tool 1 on"});
}

TEST_F(CommandPass, IgnoresTheRecordHotkeyDuringPlayback) {
    passOnEverySignal();
    engine.playing = true;
    feed("F8↓");
    EXPECT_FALSE(engine.recording.load());
    EXPECT_TRUE(engine.playing.load());
}

TEST_F(CommandPass, IgnoresThePlayHotkeyDuringARecording) {
    passOnEverySignal();
    feed("F8↓ F7↓");
    EXPECT_TRUE(engine.recording.load());
    EXPECT_FALSE(engine.playing.load());
    EXPECT_FALSE(desktop.isSignalled(Event::playerWake));
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(CommandPass, StartsNeitherRecordingNorPlaybackDuringTheOther) {
    engine.playing = true;
    passWith({requests.startRecording, requests.continueRecording});
    EXPECT_FALSE(engine.recording.load());
    engine.playing = false;
    engine.recording = true;
    passWith({requests.startPlayback, requests.stopPlayback});
    EXPECT_FALSE(engine.playing.load());
    EXPECT_TRUE(engine.recording.load());
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(CommandPass, CompletesACaptureBeforeTheToggles) {
    // The F2 that becomes the target is in the list before the start looks at it.
    keySpamTargets.count = 0;
    capture.slot = CaptureSlot::keySpamTarget;
    capture.code = 113;
    passWith({requests.keySpamStart});
    EXPECT_TRUE(engine.keySpamming.load());
}

TEST_F(CommandPass, WakesOnlyTheWorkerThatItConcerns) {
    passWith({requests.clickerStart});
    EXPECT_TRUE(desktop.isSignalled(Event::clickerWake));
    EXPECT_FALSE(desktop.isSignalled(Event::keySpamWake));
    EXPECT_FALSE(desktop.isSignalled(Event::playerWake));
    passWith({requests.keySpamToggle});
    EXPECT_TRUE(desktop.isSignalled(Event::keySpamWake));
    passWith({requests.playToggle});
    EXPECT_TRUE(desktop.isSignalled(Event::playerWake));
}

TEST_F(CommandPass, StopsPlaybackWithTheReleaseOfLeftAndRight) {
    engine.playing = true;
    passWith({requests.stopPlayback});
    EXPECT_FALSE(engine.playing.load());
    EXPECT_EQ(desktop.texts(), (Texts{"left up", "right up"}));
    EXPECT_TRUE(desktop.isSignalled(Event::playerWake));
}

TEST_F(CommandPass, DoesNothingOnAStopOfWhatDoesNotRun) {
    passWith({requests.stopPlayback, requests.stopRecording, requests.clickerStop,
              requests.keySpamStop, requests.undoContinuation});
    EXPECT_THAT(desktop.log, IsEmpty());
    for (const auto event : {Event::clickerWake, Event::keySpamWake, Event::playerWake})
        EXPECT_FALSE(desktop.isSignalled(event));
}

TEST_F(CommandPass, RunsOnceWhenTheThreadStartsAndOnceASignal) {
    raiseRequest(requests.clickerToggle);
    desktop.at(1, [] {
        EXPECT_TRUE(engine.autoClicking.load());
        postRequest(requests.clickerToggle);
    });
    desktop.at(2, [] { EXPECT_FALSE(engine.autoClicking.load()); });
    // Raised without a signal: seen by the next pass, whatever wakes it.
    desktop.at(3, [] { raiseRequest(requests.clickerToggle); });
    desktop.at(4, [] {
        EXPECT_FALSE(engine.autoClicking.load());
        platform::signal(Event::command);
    });
    runCommandThread();
    EXPECT_TRUE(engine.autoClicking.load());
}

TEST_F(CommandPass, CountsInPhysicalPixelsAsTheHooksDo) {
    desktop.scale = 1.5;
    quitAt(1);
    runCommandThread();
    EXPECT_EQ(platform::primaryScreen().cx, desktop.screen.cx);
}

TEST_F(CommandPass, EndsAtQuit) {
    quitAt(5);
    desktop.at(6, [] { FAIL() << "still waiting"; });
    runCommandThread();
    EXPECT_NEAR(desktop.now(), 5, 1e-3);
}

}  // namespace
}  // namespace ravelin::test
