// Real input while recording: what the hooks and the hidden window hand to the recorder.
#include <gtest/gtest.h>

#include <algorithm>

#include "input/engine_state.h"
#include "input/platform.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::eventually;
using test::ForeignProgram;
using test::InputThreadRun;
using test::ownPath;
using test::realInput;
using test::RealInputTest;
using test::TestWindow;

std::vector<UnifiedEvent> recorded() {
    const std::lock_guard lock(profileMutex);
    const EventList& events = profiles.at(0).events;
    return {events.begin(), events.end()};
}

std::vector<UnifiedEvent> recorded(EventKind kind) {
    std::vector<UnifiedEvent> result = recorded();
    std::erase_if(result, [=](const UnifiedEvent& event) { return !event.is(kind); });
    return result;
}

class RealRecording : public RealInputTest {
  protected:
    // Where the display's lock keys are not as Wine has them, the first key brings a press and a
    // release of each with it.
    static void SetUpTestSuite() {
        if (!test::hasRealInput()) return;
        TestWindow window(L"Lock keys");
        realInput("key shift");
        EXPECT_TRUE(window.awaitMessage(WM_KEYUP));
    }

    void SetUp() override {
        SetCursorPos(20, 900);
        RealInputTest::SetUp();
        engine.recording = true;
    }

    // Sends the commands and then a key; everything before the key has been handled when it is in
    // the recording.
    static void perform(const std::string& commands) {
        realInput(commands + " key z");
        ASSERT_TRUE(eventually([] {
            const auto keys = recorded(EventKind::Key);
            return std::any_of(keys.begin(), keys.end(), [](const UnifiedEvent& event) {
                return event.vk == 'Z' && event.down == 0;
            });
        }));
    }

    // One move at a time: the X side joins moves that follow each other closely.
    static void moveAndAwait(const char* command, EventKind kind, platform::Point expected) {
        realInput(command);
        EXPECT_TRUE(eventually([=] {
            const auto moves = recorded(kind);
            return !moves.empty() && platform::Point{moves.back().x, moves.back().y} == expected;
        })) << command;
    }
};

TEST_F(RealRecording, KeysAreRecordedWithTheirCodes) {
    const TestWindow window(L"Receiver");
    perform("key F5");
    const auto keys = recorded(EventKind::Key);
    ASSERT_EQ(keys.size(), 4U);
    EXPECT_EQ(keys[0].vk, std::uint32_t{VK_F5});
    EXPECT_EQ(keys[0].down, 1);
    EXPECT_EQ(keys[1].vk, std::uint32_t{VK_F5});
    EXPECT_EQ(keys[1].down, 0);
    EXPECT_LE(keys[0].time, keys[1].time);
}

TEST_F(RealRecording, AHotkeyLeavesNothingBehind) {
    const TestWindow window(L"Receiver");
    perform("key F8");
    EXPECT_EQ(requests.recToggle, 1);
    for (const auto& event : recorded(EventKind::Key))
        EXPECT_EQ(event.vk, std::uint32_t{'Z'});
}

TEST_F(RealRecording, ClicksOnAnotherProgramAreRecordedWhereTheyWere) {
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 700 300 click 1 click 2 click 3");
    const auto clicks = recorded(EventKind::MouseButton);
    const std::uint32_t flags[] = {2, 4, 32, 64, 8, 16};
    ASSERT_EQ(clicks.size(), std::size(flags));
    for (std::size_t i = 0; i < clicks.size(); ++i) {
        EXPECT_EQ(clicks[i].flags, flags[i]);
        EXPECT_EQ(clicks[i].x, 700);
        EXPECT_EQ(clicks[i].y, 300);
    }
}

TEST_F(RealRecording, ASideButtonIsRecordedByItsPressAlone) {
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 700 300 click 8 click 9");
    const auto clicks = recorded(EventKind::MouseButton);
    ASSERT_EQ(clicks.size(), 2U);
    EXPECT_EQ(clicks[0].flags, 128U);
    EXPECT_EQ(clicks[1].flags, 128U);
}

TEST_F(RealRecording, ClicksOnAnOwnWindowAreNotRecorded) {
    const TestWindow window(L"Own");
    perform("mousemove 250 250 click 1 click 3");
    EXPECT_EQ(recorded(EventKind::MouseButton).size(), 0U);
}

TEST_F(RealRecording, ClicksOnAnotherProcessOfThisExecutableAreNotRecorded) {
    const ChildProgram child(ownPath());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 700 300 click 1 click 3");
    EXPECT_EQ(recorded(EventKind::MouseButton).size(), 0U);
}

TEST_F(RealRecording, AReleaseBelongsToTheWindowOfItsPress) {
    const TestWindow own(L"Own");
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    perform(
        "mousemove 250 250 mousedown 1 mousemove 700 300 mouseup 1 "
        "mousedown 3 mousemove 250 250 mouseup 3");
    const auto clicks = recorded(EventKind::MouseButton);
    ASSERT_EQ(clicks.size(), 2U);
    EXPECT_EQ(clicks[0].flags, 8U);
    EXPECT_EQ(clicks[1].flags, 16U);
}

TEST_F(RealRecording, TheWheelIsRecordedWithItsDirection) {
    const TestWindow window(L"Receiver");
    perform("mousemove 250 250 click 4 click 5");
    const auto turns = recorded(EventKind::Wheel);
    ASSERT_EQ(turns.size(), 2U);
    EXPECT_EQ(turns[0].wheel, 120);
    EXPECT_EQ(turns[1].wheel, -120);
}

TEST_F(RealRecording, MovesAreRecordedAsPlaces) {
    const TestWindow window(L"Receiver");
    moveAndAwait("mousemove 210 220", EventKind::MouseMove, {210, 220});
    moveAndAwait("mousemove 211 220", EventKind::MouseMove, {211, 220});
    moveAndAwait("mousemove 211 220 mousemove 230 240", EventKind::MouseMove, {230, 240});
    EXPECT_EQ(recorded(EventKind::MouseMove).size(), 3U);
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 0U);
}

TEST_F(RealRecording, RelativeMovesAreRecordedAsMotionAlone) {
    toolSettings.trel = true;
    const TestWindow window(L"Receiver");
    moveAndAwait("mousemove_relative 5 7", EventKind::MouseRaw, {5, 7});
    moveAndAwait("mousemove_relative -- -3 -2", EventKind::MouseRaw, {-3, -2});
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 2U);
    EXPECT_EQ(recorded(EventKind::MouseMove).size(), 0U);
}

TEST_F(RealRecording, AClickAddsNoMotion) {
    toolSettings.trel = true;
    const TestWindow window(L"Receiver");
    perform("click 1 mousemove_relative 4 4");
    ASSERT_TRUE(eventually([] { return !recorded(EventKind::MouseRaw).empty(); }));
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 1U);
}

TEST_F(RealRecording, NoMotionIsRecordedWithMovesSwitchedOff) {
    toolSettings.trel = true;
    toolSettings.tmv = false;
    const TestWindow window(L"Receiver");
    perform("mousemove_relative 5 7");
    // The window has handled the motion when it answers.
    SendMessageW(InputThreadRun::hiddenWindow(), WM_NULL, 0, 0);
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 0U);
    EXPECT_EQ(recorded(EventKind::MouseMove).size(), 0U);
}

TEST_F(RealRecording, NothingIsRecordedOnceRecordingIsOff) {
    engine.recording = false;
    TestWindow receiver(L"Receiver");
    realInput(receiver.handle(), "mousemove 250 250 click 1 key z");
    ASSERT_TRUE(receiver.messages.awaitOne([](const test::SeenMessage& seen) {
        return seen.message == WM_KEYUP && seen.wParam == 'Z';
    }));
    EXPECT_EQ(recorded().size(), 0U);
}

TEST_F(RealRecording, InjectedInputIsNotRecorded) {
    const TestWindow window(L"Receiver");
    platform::send(platform::KeyInput{static_cast<std::uint16_t>(platform::scanCode(VK_F5)), 8});
    platform::send(platform::KeyInput{static_cast<std::uint16_t>(platform::scanCode(VK_F5)), 10});
    platform::send(platform::MouseInput{.mouseData = 120, .flags = MOUSEEVENTF_WHEEL});
    perform("");
    for (const auto& event : recorded())
        EXPECT_EQ(event.vk, std::uint32_t{'Z'});
}

}  // namespace
}  // namespace ravelin
