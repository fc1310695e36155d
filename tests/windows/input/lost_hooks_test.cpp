// Hooks that were removed behind the program's back come back.
#include <gtest/gtest.h>
#include <windows.h>
// Needs the types of windows.h.
#include <wtsapi32.h>

#include <functional>
#include <optional>
#include <string>

#include "input/engine_state.h"
#include "input/requests.h"
#include "support/win32_handles.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::eventually;
using test::realInput;
using test::RealInputTest;
using test::TestWindow;

class LostHooks : public RealInputTest {
  protected:
    void SetUp() override {
        RealInputTest::SetUp();
        if (IsSkipped()) return;
        window_.emplace(L"Receiver");
    }
    void TearDown() override {
        window_.reset();
        RealInputTest::TearDown();
    }

    // Every hook of this process, as the system removes one that was slow: its owner is not told. A
    // handle with an empty upper half stands for whatever lies at its place in the table.
    static int removeAllHooks() {
        int removed = 0;
        for (std::uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
            removed += UnhookWindowsHookEx(reinterpret_cast<HHOOK>(handle)) != 0 ? 1 : 0;
        return removed;
    }
    bool typed(const char* key) {
        return eventually([&] { return tryToType(key); });
    }
    bool toggledByF6() {
        realInput(window_->handle(), "key F6");
        return eventually([] { return takeRequest(requests.clickerToggle); });
    }
    static void moveUntil(const std::function<bool()>& condition) {
        int x = 200;
        EXPECT_TRUE(eventually([&] {
            realInput("mousemove " + std::to_string(x = x == 200 ? 260 : 200) + " 200");
            return condition();
        }));
    }

    std::optional<TestWindow> window_;

  private:
    bool tryToType(const char* key) {
        realInput(window_->handle(), std::string("key ") + key);
        return health.hooksPutBack.load() > 0;
    }
};

TEST_F(LostHooks, AreLookedForWhileKeysAreTyped) {
    ASSERT_TRUE(toggledByF6());
    ASSERT_GE(removeAllHooks(), 2);
    // Keys that reach other programs and no hook.
    EXPECT_TRUE(typed("a"));
    EXPECT_TRUE(toggledByF6());
}

TEST_F(LostHooks, AreLookedForWhileTheMouseMoves) {
    ASSERT_TRUE(toggledByF6());
    ASSERT_GE(removeAllHooks(), 2);
    moveUntil([] { return health.hooksPutBack.load() > 0; });
    hotkeys.rec = 4;
    moveUntil([] {
        realInput("click 2");
        return takeRequest(requests.recToggle);
    });
}

// Windows takes hooks away more readily while nobody is there to be served in time.
TEST_F(LostHooks, AreLookedForAfterTheSessionWasLeft) {
    ASSERT_TRUE(toggledByF6());
    const auto tell = [](UINT message, WPARAM what) {
        SendMessageW(test::InputThreadRun::hiddenWindow(), message, what, 1);
    };
    tell(WM_WTSSESSION_CHANGE, WTS_SESSION_LOCK);
    ASSERT_GE(removeAllHooks(), 2);
    tell(WM_WTSSESSION_CHANGE, WTS_SESSION_UNLOCK);
    EXPECT_TRUE(typed("a"));
    EXPECT_TRUE(toggledByF6());
}

// The thread sleeps with the machine, and its clock goes on; no notice reaches a hidden window.
TEST_F(LostHooks, AreLookedForAfterSleep) {
    ASSERT_TRUE(toggledByF6());
    const DWORD id = GetWindowThreadProcessId(test::InputThreadRun::hiddenWindow(), nullptr);
    const KernelHandle thread(OpenThread(THREAD_SUSPEND_RESUME, FALSE, id));
    ASSERT_TRUE(thread);
    // It answers, so it is at rest, and holds nothing that others would wait for.
    SendMessageW(test::InputThreadRun::hiddenWindow(), WM_NULL, 0, 0);
    ASSERT_NE(SuspendThread(thread.get()), static_cast<DWORD>(-1));
    const int removed = removeAllHooks();
    const auto end = GetTickCount64() + 2500;  // more than two rounds of the watch
    EXPECT_TRUE(eventually([end] { return GetTickCount64() > end; }));
    ResumeThread(thread.get());
    ASSERT_GE(removed, 2);
    EXPECT_TRUE(typed("a"));
    EXPECT_TRUE(toggledByF6());
}

TEST_F(LostHooks, AreNotMissedWhileTheyLive) {
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(toggledByF6());
        realInput(window_->handle(), "key a key b mousemove 210 210 mousemove 240 240 click 1");
    }
    // Long enough for the watch to have judged all of it.
    const auto end = GetTickCount64() + 3500;
    ASSERT_TRUE(eventually([end] { return GetTickCount64() > end; }));
    EXPECT_EQ(health.hooksPutBack.load(), 0U);
    EXPECT_FALSE(health.hooksMissing.load());
}

}  // namespace
}  // namespace ravelin
