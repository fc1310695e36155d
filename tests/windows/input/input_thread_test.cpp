#include "input/input_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string_view>
#include <thread>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/raw_input_window_win32.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/replaced_import.h"
#include "tests/windows/harness/test_window.h"

extern "C" {
extern void* __imp_GetProcAddress;
}

namespace ravelin {
namespace {

using test::EngineTest;
using test::HookProbe;
using test::InputThreadRun;
using test::ReplacedImport;
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

// Which thread asks for which awareness of scale, in the system's place.
std::atomic<DWORD> askingThread;
std::atomic<HANDLE> askedAwareness;

HANDLE WINAPI noteAwareness(HANDLE awareness) noexcept {
    askingThread = GetCurrentThreadId();
    askedAwareness = awareness;
    return awareness;
}

FARPROC WINAPI findNotedFunction(HMODULE, LPCSTR name) noexcept {
    if (std::string_view(name) != "SetThreadDpiAwarenessContext") return nullptr;
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(noteAwareness));
}

TEST_F(InputThread, CountsInThePixelsOfEveryMonitor) {
    askingThread = 0;
    const ReplacedImport search(__imp_GetProcAddress, findNotedFunction);
    const InputThreadRun run;
    EXPECT_EQ(askingThread, GetWindowThreadProcessId(InputThreadRun::hiddenWindow(), nullptr));
    EXPECT_EQ(askedAwareness, HANDLE{DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2});
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
