#include "input/platform.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <set>
#include <thread>

#include "support/utf.h"

namespace ravelin::platform {
namespace {

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
