#include "input/input_thread.h"

#include <gtest/gtest.h>

#include <thread>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/raw_input_window_win32.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::EngineTest;
using test::HookProbe;
using test::InputThreadRun;
using test::TestWindow;

class InputThread : public EngineTest {};

void inject(DWORD flags, WORD vk) {
    INPUT record{};
    record.type = INPUT_KEYBOARD;
    record.ki.wVk = vk;
    record.ki.dwFlags = flags;
    SendInput(1, &record, sizeof record);
}

void injectMouse(DWORD flags) {
    INPUT record{};
    record.type = INPUT_MOUSE;
    record.mi.dwFlags = flags;
    SendInput(1, &record, sizeof record);
}

TEST_F(InputThread, EndsOnQuitAndTakesItsWindowAndClassWithIt) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    {
        const InputThreadRun run;
        ASSERT_NE(InputThreadRun::hiddenWindow(), nullptr);
        EXPECT_NE(GetClassInfoExW(GetModuleHandleW(nullptr), rawInputWindowClass, &description), 0);
    }
    EXPECT_EQ(InputThreadRun::hiddenWindow(), nullptr);
    EXPECT_EQ(GetClassInfoExW(GetModuleHandleW(nullptr), rawInputWindowClass, &description), 0);
}

TEST_F(InputThread, HidesItsWindowAmongTheMessageWindows) {
    const InputThreadRun run;
    const HWND window = InputThreadRun::hiddenWindow();
    EXPECT_EQ(GetWindowTextLengthW(window), 0);
    EXPECT_EQ(IsWindowVisible(window), FALSE);
    EXPECT_EQ(FindWindowExW(GetDesktopWindow(), nullptr, rawInputWindowClass, nullptr), nullptr);
}

TEST_F(InputThread, AsksForMouseMotionWhicheverProgramIsInTheForeground) {
    const InputThreadRun run;
    RAWINPUTDEVICE device{};
    UINT count = 1;
    ASSERT_EQ(GetRegisteredRawInputDevices(&device, &count, sizeof device), 1U);
    EXPECT_EQ(device.usUsagePage, 1);
    EXPECT_EQ(device.usUsage, 2);
    EXPECT_EQ(device.dwFlags, DWORD{RIDEV_INPUTSINK});
    EXPECT_EQ(device.hwndTarget, InputThreadRun::hiddenWindow());
}

TEST_F(InputThread, GoesBeforeEveryOrdinaryThread) {
    const InputThreadRun run;
    const DWORD id = GetWindowThreadProcessId(InputThreadRun::hiddenWindow(), nullptr);
    const HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, id);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(GetThreadPriority(thread), THREAD_PRIORITY_TIME_CRITICAL);
    CloseHandle(thread);
}

TEST_F(InputThread, SeesThePixelsOfEveryMonitorWhileTheProcessDoesNot) {
    enum : int { perMonitorAware = 2 };
    const auto before = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
    const InputThreadRun run;
    // A window keeps the awareness of the thread that made it.
    EXPECT_EQ(GetAwarenessFromDpiAwarenessContext(
                  GetWindowDpiAwarenessContext(InputThreadRun::hiddenWindow())),
              perMonitorAware);
    SetThreadDpiAwarenessContext(before);
}

TEST_F(InputThread, CanRunAgain) {
    { const InputThreadRun first; }
    const InputThreadRun second;
    EXPECT_NE(InputThreadRun::hiddenWindow(), nullptr);
}

TEST_F(InputThread, DoesNotStartOnceShutDownHasBegun) {
    engine.running = false;
    std::thread thread(runInputThread);
    thread.join();
    EXPECT_EQ(InputThreadRun::hiddenWindow(), nullptr);
}

TEST_F(InputThread, NeedsNoQuitWhileItDoesNotRun) {
    postQuitToInputThread();
    const InputThreadRun run;
    EXPECT_NE(InputThreadRun::hiddenWindow(), nullptr);
}

TEST_F(InputThread, PassesInjectedKeysOnAndTakesThemForNoHotkey) {
    const InputThreadRun run;
    TestWindow window(L"Receiver");
    inject(0, VK_F6);
    inject(KEYEVENTF_KEYUP, VK_F6);
    ASSERT_TRUE(window.awaitMessage(WM_KEYUP));
    EXPECT_TRUE(window.received(WM_KEYDOWN));
    EXPECT_EQ(requests.clickerToggle, 0);
}

TEST_F(InputThread, NeverCapturesAnInjectedKeyOrClick) {
    const InputThreadRun run;
    TestWindow window(L"Receiver");
    SetCursorPos(200, 200);
    capture.slot = CaptureSlot::rec;
    capture.pickingLocation = true;
    inject(0, VK_F2);
    inject(KEYEVENTF_KEYUP, VK_F2);
    injectMouse(MOUSEEVENTF_LEFTDOWN);
    injectMouse(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(window.awaitMessage(WM_LBUTTONUP));
    EXPECT_TRUE(window.received(WM_KEYDOWN));
    EXPECT_TRUE(window.received(WM_LBUTTONDOWN));
    EXPECT_EQ(capture.code, 0U);
    EXPECT_EQ(capture.slot.load(), CaptureSlot::rec);
    EXPECT_TRUE(capture.pickingLocation);
}

TEST_F(InputThread, PassesAnInjectedButtonOnThatIsAHotkey) {
    hotkeys.autoClicker = VK_MBUTTON;
    const InputThreadRun run;
    TestWindow window(L"Receiver");
    SetCursorPos(200, 200);
    injectMouse(MOUSEEVENTF_MIDDLEDOWN);
    injectMouse(MOUSEEVENTF_MIDDLEUP);
    ASSERT_TRUE(window.awaitMessage(WM_MBUTTONUP));
    EXPECT_TRUE(window.received(WM_MBUTTONDOWN));
    EXPECT_EQ(requests.clickerToggle, 0);
}

}  // namespace
}  // namespace ravelin
