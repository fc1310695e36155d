#include "input/playback_gate.h"

#include <gmock/gmock.h>

#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Gate : public EngineTest {
  protected:
    static bool sends(PlaybackGate::Run run) {
        return playbackGate.whileItGoesOn(run, [] {});
    }
};

TEST_F(Gate, LetsTheRunInProgressSend) {
    EXPECT_TRUE(playbackGate.start());
    EXPECT_FALSE(playbackGate.start());
    EXPECT_TRUE(sends(playbackGate.currentRun()));
}

TEST_F(Gate, LetsNothingThroughBehindAStop) {
    playbackGate.start();
    const auto run = playbackGate.currentRun();
    EXPECT_TRUE(playbackGate.stop());
    EXPECT_FALSE(sends(run));
    playbackGate.start();
    EXPECT_FALSE(sends(run));
    EXPECT_TRUE(sends(playbackGate.currentRun()));
}

TEST_F(Gate, LetsNothingThroughWhenTheProgramEnds) {
    playbackGate.start();
    engine.running = false;
    EXPECT_FALSE(sends(playbackGate.currentRun()));
}

TEST_F(Gate, ReleasesLeftAndRightOnceAStop) {
    EXPECT_FALSE(playbackGate.stop());
    EXPECT_THAT(desktop.log, IsEmpty());
    playbackGate.start();
    EXPECT_TRUE(playbackGate.stop());
    EXPECT_FALSE(playbackGate.stop());
    EXPECT_THAT(desktop.texts(), ElementsAre("left up", "right up"));
}

TEST_F(Gate, FinishesARunWithoutARelease) {
    playbackGate.start();
    playbackGate.finish(playbackGate.currentRun());
    EXPECT_FALSE(engine.playing.load());
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(Gate, FinishesNoRunButItsOwn) {
    playbackGate.start();
    const auto run = playbackGate.currentRun();
    playbackGate.stop();
    playbackGate.start();
    playbackGate.finish(run);
    EXPECT_TRUE(engine.playing.load());
}

}  // namespace
}  // namespace ravelin::test
