#include "input/platform.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <set>
#include <string_view>
#include <thread>

#include "support/utf.h"
#include "tests/windows/harness/replaced_import.h"

extern "C" {
extern void* __imp_GetKeyNameTextA;
extern void* __imp_GetProcAddress;
}

namespace ravelin::platform {
namespace {

using test::ReplacedImport;

TEST(Platform, NamesKeysAsTheSystemDoes) {
    for (std::uint32_t vk = 1; vk < 256; ++vk) {
        const LONG lParam = static_cast<LONG>(MapVirtualKeyW(vk, MAPVK_VK_TO_VSC) << 16U);
        std::array<wchar_t, 128> expected{};
        const int length = GetKeyNameTextW(lParam, expected.data(), 128);
        EXPECT_EQ(systemKeyName(lParam),
                  narrow({expected.data(), static_cast<std::size_t>(std::max(length, 0))}))
            << vk;
    }
}

TEST(Platform, TellsAnExtendedKeyFromItsTwin) {
    const auto arrow = static_cast<std::int32_t>(scanCode(VK_LEFT) << 16U);
    EXPECT_NE(systemKeyName(arrow | 0x01000000), systemKeyName(arrow));
}

// As the system's call names the keys of other countries: in the code page of the process.
const wchar_t* foreignName = L"";

int WINAPI nameInForeignScript(LONG, LPSTR name, int room) noexcept {
    const int written =
        WideCharToMultiByte(CP_ACP, 0, foreignName, -1, name, room, nullptr, nullptr);
    return std::max(written - 1, 0);
}

TEST(Platform, NamesKeysInEveryScriptAsUtf8) {
    const ReplacedImport name(__imp_GetKeyNameTextA, nameInForeignScript);
    foreignName = L"\u00FC";
    EXPECT_EQ(systemKeyName(0x1A << 16), "\xC3\xBC");
    foreignName = L"\u0439";
    EXPECT_EQ(systemKeyName(0x10 << 16), "\xD0\xB9");
}

TEST(Platform, HasNoNameForAKeyWithoutOne) {
    EXPECT_EQ(systemKeyName(0), "");
}

TEST(Platform, KnowsTheScanCodesOfTheLayout) {
    EXPECT_EQ(scanCode(VK_ESCAPE), 0x01U);
    EXPECT_EQ(scanCode(VK_F6), 0x40U);
    EXPECT_EQ(scanCode('A'), MapVirtualKeyW('A', MAPVK_VK_TO_VSC));
    EXPECT_EQ(scanCode(VK_RCONTROL), scanCode(VK_LCONTROL));
    EXPECT_EQ(scanCode(7), 0U);  // unassigned
}

TEST(Platform, GivesAWorkerThePixelsOfEveryMonitor) {
    enum : int { systemAware = 1, perMonitorAware = 2 };
    const auto awareness = [] {
        return GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext());
    };
    // The thread alone: windows and pages keep what the process has declared.
    const auto before = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
    std::thread([&] {
        SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
        enterWorkerThread();
        EXPECT_EQ(awareness(), perMonitorAware);
    }).join();
    EXPECT_EQ(awareness(), systemAware);
    SetThreadDpiAwarenessContext(before);
}

// What the thread that enters asks of the system for itself.
struct SpeedRequest {
    HANDLE thread = nullptr;
    int kind = 0;
    ULONG version = 0;
    ULONG control = 0;
    ULONG state = 1;
    DWORD size = 0;
    int calls = 0;
};
SpeedRequest speedRequest;

BOOL WINAPI noteSpeedRequest(HANDLE thread, int kind, void* information, DWORD size) noexcept {
    const auto* words = static_cast<const ULONG*>(information);
    speedRequest = {thread, kind, words[0], words[1], words[2], size, speedRequest.calls + 1};
    return TRUE;
}

// No other function is found, as on a system that is older than all of them.
FARPROC WINAPI findNotedFunction(HMODULE, LPCSTR name) noexcept {
    if (std::string_view(name) == "SetThreadInformation")
        return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(noteSpeedRequest));
    return nullptr;
}

TEST(Platform, AsksWindowsNotToSlowAWorkerDown) {
    enum : int { threadPowerThrottling = 3, executionSpeed = 1 };
    speedRequest = {};
    {
        const ReplacedImport search(__imp_GetProcAddress, findNotedFunction);
        std::thread(enterWorkerThread).join();
    }
    EXPECT_EQ(speedRequest.calls, 1);
    EXPECT_EQ(speedRequest.thread, GetCurrentThread());  // the same word for every thread: itself
    EXPECT_EQ(speedRequest.kind, threadPowerThrottling);
    EXPECT_EQ(speedRequest.version, 1U);
    EXPECT_EQ(speedRequest.control, ULONG{executionSpeed});
    EXPECT_EQ(speedRequest.state, 0U);  // decided by the thread, and not slowed
    EXPECT_EQ(speedRequest.size, 3 * sizeof(ULONG));
}

TEST(Platform, WorksWhereTheSystemIsOlderThanThoseRequests) {
    const ReplacedImport search(
        __imp_GetProcAddress, +[](HMODULE, LPCSTR) noexcept -> FARPROC { return nullptr; });
    std::thread(enterWorkerThread).join();
}

TEST(Platform, AdoptsTheLayoutOfTheProgramInFront) {
    // Another thread's layout cannot be told here; what is adopted must at least be in use.
    const HKL front = GetKeyboardLayout(GetWindowThreadProcessId(GetForegroundWindow(), nullptr));
    std::thread([front] {
        adoptForegroundLayout();
        EXPECT_EQ(GetKeyboardLayout(0), front);
    }).join();
}

TEST(Platform, FindsTheCursorWhereItWasPut) {
    SetCursorPos(321, 123);
    EXPECT_EQ(cursorPosition(), (Point{321, 123}));
}

TEST(Platform, MeasuresThePrimaryScreen) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    ASSERT_NE(GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &info), 0);
    const Size screen = primaryScreen();
    EXPECT_EQ(screen.cx, info.rcMonitor.right - info.rcMonitor.left);
    EXPECT_EQ(screen.cy, info.rcMonitor.bottom - info.rcMonitor.top);
}

TEST(Platform, KnowsTheUsersDoubleClickTime) {
    EXPECT_EQ(doubleClickMs(), GetDoubleClickTime());
    EXPECT_GT(doubleClickMs(), 0U);
}

TEST(Platform, CountsForwardAtTheFrequencyThatItTells) {
    const std::int64_t before = counter();
    sleepMs(20);
    const double seconds =
        static_cast<double>(counter() - before) / static_cast<double>(counterFrequency());
    EXPECT_GE(seconds, 0.015);  // the system's clock may be a tick early
}

}  // namespace
}  // namespace ravelin::platform
