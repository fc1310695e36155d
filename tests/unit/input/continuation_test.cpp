// Start, continuation and stop of a recording, and the undo of a continuation.
#include <gmock/gmock.h>

#include "input/recorder.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"
#include "tests/support/macro_text.h"

namespace ravelin::test {
namespace {

class Continuation : public EngineTest {
  protected:
    Continuation() { passOnEverySignal(); }

    static void record(std::string_view script) { take(requests.recToggle, script); }
    static void continueWith(std::string_view script) { take(requests.continueRecording, script); }
    static void undo() { postRequest(requests.undoContinuation); }

  private:
    static void take(Requests::Flag& start, std::string_view script) {
        postRequest(start);
        ASSERT_TRUE(engine.recording.load());
        feed(script);
        postRequest(requests.stopRecording);
        ASSERT_FALSE(engine.recording.load());
    }
};

TEST_F(Continuation, IsJoinedToTheOldPart) {
    record("100 A↓ 600 A↑");
    continueWith("5000 B↓ 5200 B↑");
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 500:key 65 up, 600:key 66 down, 800:key 66 up");
}

TEST_F(Continuation, OfAnEmptyMacroBeginsAtZero) {
    continueWith("5000 B↓");
    EXPECT_EQ(textOf(macro()), "0:key 66 down");
}

TEST_F(Continuation, KeepsItsClicksTheSystemsDoubleClickTimeApart) {
    desktop.doubleClickMs = 700;
    record("100 left↓@1,1");
    continueWith("5000 left↓@1,1");
    EXPECT_NEAR(macro()[1].time, 0.75, 1e-12);
}

TEST_F(Continuation, OfAContinuationIsJoinedToBoth) {
    record("100 A↓");
    continueWith("5000 B↓");
    continueWith("9000 C↓");
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 100:key 66 down, 200:key 67 down");
}

TEST_F(Continuation, IsNotForgottenByAFreshRecording) {
    record("100 A↓");
    continueWith("5000 B↓");
    record("9000 C↓");
    EXPECT_EQ(textOf(macro()), "0:key 67 down") << "the join index of the continuation is gone";
}

TEST_F(Continuation, IsStoppedByTheRecordHotkey) {
    record("100 A↓");
    postRequest(requests.continueRecording);
    feed("200 B↓ 300 F8↓ F8↑");
    EXPECT_FALSE(engine.recording.load());
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 100:key 66 down");
    EXPECT_TRUE(canUndoContinuation());
}

TEST_F(Continuation, IsIgnoredWhileARecordingRuns) {
    postRequest(requests.recToggle);
    feed("100 A↓");
    postRequest(requests.continueRecording);
    postRequest(requests.startRecording);
    EXPECT_EQ(macro().size(), 1U);
    feed("200 B↓");
    postRequest(requests.stopRecording);
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 100:key 66 down");
    EXPECT_FALSE(canUndoContinuation());
}

TEST_F(Continuation, LeavesAnEventThatWasCutAwayMeanwhileOut) {
    record("100 A↓ 200 A↑");
    postRequest(requests.continueRecording);
    macro() = {};  // the profile was cleared
    feed("5000 B↓");
    postRequest(requests.stopRecording);
    // One event is fewer than there were: none of them counts as new.
    EXPECT_EQ(macro().size(), 1U);
    EXPECT_GT(macro()[0].time, 1.0);
}

TEST_F(Continuation, StopsTheToolsEvenWithoutNewEvents) {
    engine.autoClicking = true;
    record("100");
    EXPECT_FALSE(engine.autoClicking.load());
}

TEST_F(Continuation, CanBeUndoneOnce) {
    record("100 A↓ 600 A↑");
    EXPECT_FALSE(canUndoContinuation());
    continueWith("5000 B↓");
    EXPECT_TRUE(canUndoContinuation());
    undo();
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 500:key 65 up");
    EXPECT_FALSE(canUndoContinuation());
    undo();
    EXPECT_EQ(macro().size(), 2U);
}

TEST_F(Continuation, CanBeUndoneBackToAnEmptyMacro) {
    continueWith("5000 B↓");
    undo();
    EXPECT_TRUE(macro().empty());
}

TEST_F(Continuation, CanBeFollowedByAnotherAfterItsUndo) {
    record("100 A↓");
    continueWith("5000 B↓");
    undo();
    continueWith("9000 C↓");
    EXPECT_EQ(textOf(macro()), "0:key 65 down, 100:key 67 down");
    undo();
    EXPECT_EQ(textOf(macro()), "0:key 65 down");
}

TEST_F(Continuation, CannotBeUndoneWhileRecordingOrPlaying) {
    record("100 A↓");
    continueWith("5000 B↓");
    for (auto* busy : {&engine.recording, &engine.playing}) {
        *busy = true;
        EXPECT_FALSE(canUndoContinuation());
        undo();
        EXPECT_EQ(macro().size(), 2U);
        *busy = false;
    }
    EXPECT_TRUE(canUndoContinuation());
}

TEST_F(Continuation, CannotBeUndoneInAnotherProfile) {
    record("100 A↓");
    continueWith("5000 B↓");
    profiles.push_back({"Other", "", macro()});
    currentProfile = 1;
    EXPECT_FALSE(canUndoContinuation());
    undo();
    EXPECT_EQ(macro().size(), 2U);
    currentProfile = 0;
    EXPECT_TRUE(canUndoContinuation());
}

TEST_F(Continuation, CannotBeUndoneAfterAFreshRecording) {
    record("100 A↓");
    continueWith("5000 B↓");
    record("9000 A↓");
    EXPECT_FALSE(canUndoContinuation());
}

TEST_F(Continuation, CannotBeUndoneOnceTheMacroHasChanged) {
    record("100 A↓");
    continueWith("5000 B↓");
    const EventList after = macro();
    for (const auto field : {0, 1, 2, 3, 4, 5, 6, 7}) {
        UnifiedEvent last = after[1];
        if (field == 0) last.kind += 1;
        if (field == 1) last.time = std::nextafter(last.time, 100);
        if (field == 2) last.x += 1;
        if (field == 3) last.y += 1;
        if (field == 4) last.flags += 1;
        if (field == 5) last.vk += 1;
        if (field == 6) last.down ^= 1;
        if (field == 7) last.wheel += 1;
        macro() = {after[0], last};
        EXPECT_FALSE(canUndoContinuation()) << field;
        undo();
        EXPECT_EQ(macro().size(), 2U);
    }
    macro().append(after[1]);
    EXPECT_FALSE(canUndoContinuation());
}

TEST_F(Continuation, CanBeUndoneInAMacroThatIsTheSameAgain) {
    record("100 A↓");
    continueWith("5000 B↓");
    macro() = {macro()[0], macro()[1]};  // read anew from a file, say
    EXPECT_TRUE(canUndoContinuation());
    undo();
    EXPECT_EQ(textOf(macro()), "0:key 65 down");
}

TEST_F(Continuation, WithoutNewEventsIsUndoneToTheSameMacro) {
    record("100 A↓");
    continueWith("5000");
    EXPECT_EQ(textOf(macro()), "0:key 65 down");
    undo();
    EXPECT_EQ(textOf(macro()), "0:key 65 down");
}

}  // namespace
}  // namespace ravelin::test
