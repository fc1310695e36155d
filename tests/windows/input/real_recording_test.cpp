// Real input while recording: what the hooks and the hidden window hand to the recorder.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "input/engine_state.h"
#include "input/platform.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::eventually;
using test::ForeignProgram;
using test::HookProbe;
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

// Sees the motions that the input thread takes from its queue, whatever it then makes of them. One
// at a time.
class RawMotionProbe {
  public:
    RawMotionProbe() {
        motions.clear();
        const HWND window = InputThreadRun::hiddenWindow();
        hook_ = SetWindowsHookExW(WH_GETMESSAGE, onMessage, nullptr,
                                  GetWindowThreadProcessId(window, nullptr));
    }
    RawMotionProbe(const RawMotionProbe&) = delete;
    RawMotionProbe& operator=(const RawMotionProbe&) = delete;
    ~RawMotionProbe() { UnhookWindowsHookEx(hook_); }

    // Waits until the thread has handled the motion.
    static bool awaitHandled(platform::Point motion) {
        const bool taken = motions.awaitOne([=](platform::Point one) { return one == motion; });
        SendMessageW(InputThreadRun::hiddenWindow(), WM_NULL, 0, 0);
        return taken;
    }

  private:
    static LRESULT CALLBACK onMessage(int code, WPARAM removed, LPARAM argument) {
        const auto& message = *reinterpret_cast<const MSG*>(argument);
        if (code == HC_ACTION && removed == PM_REMOVE && message.message == WM_INPUT) {
            RAWINPUT input{};
            UINT size = sizeof input;
            GetRawInputData(reinterpret_cast<HRAWINPUT>(message.lParam), RID_INPUT, &input, &size,
                            sizeof input.header);
            motions.add({input.data.mouse.lLastX, input.data.mouse.lLastY});
        }
        return CallNextHookEx(nullptr, code, removed, argument);
    }

    inline static test::EventLog<platform::Point> motions;
    HHOOK hook_ = nullptr;
};

class RealRecording : public RealInputTest {
  protected:
    // Where the display's lock keys are not as Wine has them, the first key brings a press and a
    // release of each with it.
    static void SetUpTestSuite() {
        if (!test::hasRealInput()) return;
        TestWindow window(L"Lock keys");
        realInput(window.handle(), "key shift");
        EXPECT_TRUE(window.awaitMessage(WM_KEYUP));
    }

    void SetUp() override {
        SetCursorPos(20, 900);
        if (test::hasRealInput()) probe_.emplace();
        RealInputTest::SetUp();
        engine.recording = true;
    }
    void TearDown() override {
        RealInputTest::TearDown();
        probe_.reset();
    }

    // Sends keys to the window and then the key z: once that has been handled, so have they.
    void type(const TestWindow& window, const std::string& commands) {
        realInput(window.handle(), commands + " key z");
        ASSERT_TRUE(probe_->awaitKey(WM_KEYUP, 'Z'));
    }
    // Sends commands of the mouse that end in this message. What goes to the windows of two
    // programs, or to the mouse and the keyboard, is handled in no certain order.
    void perform(const std::string& commands, UINT last, std::size_t count = 1) {
        probe_->mouse.clear();
        realInput(commands);
        ASSERT_TRUE(probe_->mouse.await([=](const auto& seen) {
            return std::count_if(seen.begin(), seen.end(), [=](const test::SeenMouse& event) {
                       return event.message == last;
                   }) >= static_cast<std::ptrdiff_t>(count);
        })) << commands;
    }

    // One move at a time: the X side joins moves that follow each other closely.
    static void moveAndAwait(const char* command, EventKind kind, platform::Point expected) {
        realInput(command);
        EXPECT_TRUE(eventually([=] {
            const auto moves = recorded(kind);
            return !moves.empty() && platform::Point{moves.back().x, moves.back().y} == expected;
        })) << command;
    }

    // Asked after the hooks of the input thread, which are installed later: what it has seen, they
    // have handled and passed on.
    std::optional<HookProbe> probe_;
};

TEST_F(RealRecording, KeysAreRecordedWithTheirCodes) {
    const TestWindow window(L"Receiver");
    type(window, "key F5");
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
    type(window, "key F8");
    EXPECT_EQ(requests.recToggle, 1);
    for (const auto& event : recorded(EventKind::Key))
        EXPECT_EQ(event.vk, std::uint32_t{'Z'});
}

TEST_F(RealRecording, ClicksOnAnotherProgramAreRecordedWhereTheyWere) {
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 700 300 click 1 click 2 click 3", WM_RBUTTONUP);
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
    perform("mousemove 700 300 click 8 click 9", WM_XBUTTONUP, 2);
    const auto clicks = recorded(EventKind::MouseButton);
    ASSERT_EQ(clicks.size(), 2U);
    EXPECT_EQ(clicks[0].flags, 128U);
    EXPECT_EQ(clicks[1].flags, 128U);
}

TEST_F(RealRecording, ClicksOnAnOwnWindowAreNotRecorded) {
    const TestWindow window(L"Own");
    perform("mousemove 250 250 click 1 click 3", WM_RBUTTONUP);
    EXPECT_EQ(recorded(EventKind::MouseButton).size(), 0U);
}

TEST_F(RealRecording, ClicksOnAnotherProcessOfThisExecutableAreNotRecorded) {
    const ChildProgram child(ownPath());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 700 300 click 1 click 3", WM_RBUTTONUP);
    EXPECT_EQ(recorded(EventKind::MouseButton).size(), 0U);
}

TEST_F(RealRecording, AReleaseBelongsToTheWindowOfItsPress) {
    const TestWindow own(L"Own");
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    perform("mousemove 250 250 mousedown 1 mousemove 700 300 mouseup 1", WM_LBUTTONUP);
    perform("mousedown 3 mousemove 250 250 mouseup 3", WM_RBUTTONUP);
    const auto clicks = recorded(EventKind::MouseButton);
    ASSERT_EQ(clicks.size(), 2U);
    EXPECT_EQ(clicks[0].flags, 8U);
    EXPECT_EQ(clicks[1].flags, 16U);
}

TEST_F(RealRecording, TheWheelIsRecordedWithItsDirection) {
    const TestWindow window(L"Receiver");
    perform("mousemove 250 250 click 4 click 5", WM_MOUSEWHEEL, 2);
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
    perform("click 1", WM_LBUTTONUP);
    moveAndAwait("mousemove_relative 4 4", EventKind::MouseRaw, {4, 4});
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 1U);
}

TEST_F(RealRecording, NoMotionIsRecordedWithMovesSwitchedOff) {
    toolSettings.trel = true;
    toolSettings.tmv = false;
    const TestWindow window(L"Receiver");
    const RawMotionProbe motion;
    perform("mousemove_relative 5 7", WM_MOUSEMOVE);
    ASSERT_TRUE(motion.awaitHandled({5, 7}));
    EXPECT_EQ(recorded(EventKind::MouseRaw).size(), 0U);
    EXPECT_EQ(recorded(EventKind::MouseMove).size(), 0U);
}

TEST_F(RealRecording, NothingIsRecordedOnceRecordingIsOff) {
    engine.recording = false;
    TestWindow receiver(L"Receiver");
    perform("mousemove 250 250 click 1", WM_LBUTTONUP);
    type(receiver, "");
    EXPECT_EQ(recorded().size(), 0U);
}

TEST_F(RealRecording, InjectedInputIsNotRecorded) {
    const TestWindow window(L"Receiver");
    platform::send(platform::KeyInput{static_cast<std::uint16_t>(platform::scanCode(VK_F5)), 8});
    platform::send(platform::KeyInput{static_cast<std::uint16_t>(platform::scanCode(VK_F5)), 10});
    platform::send(platform::MouseInput{.mouseData = 120, .flags = MOUSEEVENTF_WHEEL});
    type(window, "");
    for (const auto& event : recorded())
        EXPECT_EQ(event.vk, std::uint32_t{'Z'});
}

}  // namespace
}  // namespace ravelin
