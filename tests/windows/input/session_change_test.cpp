// Leaving the session: what is held then counts as up, for its release may never be seen.
#include <gtest/gtest.h>
#include <windows.h>
// Needs the types of windows.h.
#include <wtsapi32.h>

#include "input/engine_state.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::eventually;
using test::HookProbe;
using test::InputThreadRun;
using test::realInput;
using test::RealInputTest;
using test::TestWindow;

// The argument is the reason of the change. All of them come while F6 is held, which has fired.
class SessionChange : public RealInputTest, public ::testing::WithParamInterface<WPARAM> {
  protected:
    void SetUp() override {
        RealInputTest::SetUp();
        if (IsSkipped()) return;
        probe_.emplace();
        window_.emplace(L"In front");
        realInput(window_->handle(), "keydown F6");
        ASSERT_TRUE(eventually([] { return requests.clickerToggle == 1; }));
        requests.clickerToggle = 0;
        SendMessageW(InputThreadRun::hiddenWindow(), WM_WTSSESSION_CHANGE, GetParam(), 1);
    }
    void TearDown() override {
        if (IsSkipped()) return;
        realInput(window_->handle(), "keyup F6");
        EXPECT_TRUE(probe_->awaitKey(WM_KEYUP, VK_F6));
        window_.reset();
        probe_.reset();
        RealInputTest::TearDown();
    }

    std::optional<HookProbe> probe_;
    std::optional<TestWindow> window_;
};

class LeavingTheSession : public SessionChange {};

TEST_P(LeavingTheSession, MakesTheNextPressOfAHeldKeyAFirstOne) {
    EXPECT_TRUE(eventually([] { return requests.clickerToggle == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Reasons, LeavingTheSession,
                         ::testing::Values(WTS_CONSOLE_DISCONNECT, WTS_REMOTE_DISCONNECT,
                                           WTS_SESSION_LOCK));

class StayingInTheSession : public SessionChange {};

TEST_P(StayingInTheSession, ChangesNothing) {
    probe_->keys.clear();
    ASSERT_TRUE(probe_->keys.await([](const auto& seen) { return seen.size() >= 2; }));
    EXPECT_EQ(requests.clickerToggle, 0);
}

INSTANTIATE_TEST_SUITE_P(Reasons, StayingInTheSession,
                         ::testing::Values(WTS_CONSOLE_CONNECT, WTS_REMOTE_CONNECT,
                                           WTS_SESSION_LOGON, WTS_SESSION_LOGOFF,
                                           WTS_SESSION_UNLOCK, WTS_SESSION_REMOTE_CONTROL));

}  // namespace
}  // namespace ravelin
