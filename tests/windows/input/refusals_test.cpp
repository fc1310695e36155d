// What the system refuses the input thread at first, as at log-on, and grants later.
#include <gtest/gtest.h>
#include <windows.h>
// Needs the types of windows.h.
#include <wtsapi32.h>

#include <atomic>
#include <optional>

#include "input/engine_state.h"
#include "input/requests.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/replaced_import.h"
#include "tests/windows/harness/test_window.h"

extern "C" {
extern void* __imp_SetWindowsHookExW;
extern void* __imp_WTSRegisterSessionNotification;
}

namespace ravelin {
namespace {

using test::EngineTest;
using test::eventually;
using test::InputThreadRun;
using test::realInput;
using test::ReplacedImport;
using test::TestWindow;

HHOOK WINAPI refuseHook(int, HOOKPROC, HINSTANCE, DWORD) noexcept {
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}

class RefusedHooks : public EngineTest {};

TEST_F(RefusedHooks, AreToldOfAndComeLater) {
    if (!test::hasRealInput()) GTEST_SKIP() << "no real input on this system";
    std::optional<ReplacedImport> refusal(std::in_place, __imp_SetWindowsHookExW, refuseHook);
    const InputThreadRun run;
    EXPECT_TRUE(health.hooksMissing.load());
    EXPECT_EQ(health.hooksPutBack.load(), 0U);

    const TestWindow window(L"Receiver");
    refusal.reset();
    EXPECT_TRUE(eventually([] { return !health.hooksMissing.load(); }));
    EXPECT_TRUE(eventually([&] {
        realInput(window.handle(), "key F6");
        return takeRequest(requests.clickerToggle);
    }));
}

std::atomic<int> asked;

BOOL WINAPI refuseNotice(HWND, DWORD) noexcept {
    ++asked;
    SetLastError(RPC_S_INVALID_BINDING);  // the service that tells does not run yet
    return FALSE;
}

BOOL WINAPI grantNotice(HWND, DWORD) noexcept {
    ++asked;
    return TRUE;
}

class RefusedSessionNotice : public EngineTest {
  protected:
    RefusedSessionNotice() { asked = 0; }
};

TEST_F(RefusedSessionNotice, IsAskedForUntilItIsGranted) {
    std::optional<ReplacedImport> notice(std::in_place, __imp_WTSRegisterSessionNotification,
                                         refuseNotice);
    const InputThreadRun run;
    EXPECT_TRUE(eventually([] { return asked.load() >= 3; }));
    notice.reset();
    notice.emplace(__imp_WTSRegisterSessionNotification, grantNotice);
    asked = 0;
    EXPECT_TRUE(eventually([] { return asked.load() == 1; }));
    // The watch goes on once a second and has nothing left to ask for.
    const auto end = GetTickCount64() + 3500;
    ASSERT_TRUE(eventually([end] { return GetTickCount64() > end; }));
    EXPECT_EQ(asked.load(), 1);
}

}  // namespace
}  // namespace ravelin
