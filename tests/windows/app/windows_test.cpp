#include "app/windows_win32.h"

#include <gtest/gtest.h>

#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::eventually;
using test::hasFocus;
using test::ownPath;
using test::TestWindow;

constexpr DWORD framed = WS_OVERLAPPEDWINDOW;

bool isTopmost(HWND window) {
    return (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

HICON iconOf(HWND window, WPARAM which) {
    return reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, which, 0));
}

int widthOf(HICON icon) {
    ICONINFO info{};
    if (GetIconInfo(icon, &info) == 0) return 0;
    BITMAP bitmap{};
    GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return bitmap.bmWidth;
}

TEST(Windows, AreFoundByTheirExactTitle) {
    const TestWindow window(L"Ravelin \u2013 T\u00E9st");
    EXPECT_EQ(findWindowByTitle("Ravelin \xE2\x80\x93 T\xC3\xA9st"), window.handle());
    EXPECT_EQ(windowTitle(window.handle()), "Ravelin \xE2\x80\x93 T\xC3\xA9st");
    EXPECT_EQ(findWindowByTitle("Ravelin \xE2\x80\x93 T\xC3\xA9s"), nullptr);
}

TEST(Windows, MayAllBeMissing) {
    setWindowIcons(nullptr);
    setAlwaysOnTop(nullptr, true);
    bringToForeground(nullptr);
    activateWindow(nullptr);
    resizeWindow(nullptr, 300, 300, [](std::int32_t, std::int32_t) { FAIL(); });
    EXPECT_EQ(windowTitle(nullptr), "");
    EXPECT_EQ(windowRectangle(nullptr), std::nullopt);
    EXPECT_EQ(describeMonitor(nullptr), std::nullopt);
}

TEST(Windows, GetTheProgramsIconsInTheSizesOfTheSystem) {
    const TestWindow window(L"Icons");
    ASSERT_EQ(iconOf(window.handle(), ICON_BIG), nullptr);
    setWindowIcons(window.handle());
    const HICON big = iconOf(window.handle(), ICON_BIG);
    const HICON small = iconOf(window.handle(), ICON_SMALL);
    ASSERT_NE(big, nullptr);
    ASSERT_NE(small, nullptr);
    EXPECT_EQ(widthOf(big), GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(widthOf(small), GetSystemMetrics(SM_CXSMICON));
}

TEST(Windows, StayOnTopAsLongAsWanted) {
    const TestWindow window(L"Top", {100, 100, 500, 400});
    const TestWindow other(L"Other", {100, 100, 500, 400});
    const auto before = windowRectangle(window.handle());
    setAlwaysOnTop(window.handle(), true);
    EXPECT_TRUE(isTopmost(window.handle()));
    EXPECT_EQ(WindowFromPoint({200, 200}), window.handle());
    EXPECT_TRUE(hasFocus(other.handle()));
    setAlwaysOnTop(window.handle(), false);
    EXPECT_FALSE(isTopmost(window.handle()));
    EXPECT_EQ(windowRectangle(window.handle()), before);
}

TEST(Windows, ComeToTheForegroundFromBehindAnotherProgram) {
    const TestWindow window(L"Behind", ChildProgram::place);
    const ChildProgram other(ownPath(), L"In front");
    ASSERT_TRUE(other.showsItsWindow());
    ASSERT_TRUE(
        eventually([] { return GetForegroundWindow() == FindWindowW(nullptr, L"In front"); }));
    window.call([&] { bringToForeground(window.handle()); });
    EXPECT_TRUE(eventually([&] { return hasFocus(window.handle()); }));
}

TEST(Windows, AreRestoredWhenTheyAreActivatedWhileMinimised) {
    const TestWindow window(L"Minimised", {100, 100, 500, 400}, framed);
    window.call([&] { ShowWindow(window.handle(), SW_MINIMIZE); });
    ASSERT_NE(IsIconic(window.handle()), 0);
    activateWindow(window.handle());
    EXPECT_TRUE(eventually([&] {
        return IsIconic(window.handle()) == 0 && GetForegroundWindow() == window.handle();
    }));
}

TEST(Windows, AreActivatedInAnotherProcess) {
    const ChildProgram other(ownPath(), L"Elsewhere");
    ASSERT_TRUE(other.showsItsWindow());
    const TestWindow window(L"In front");
    const HWND elsewhere = findWindowByTitle("Elsewhere");
    ASSERT_NE(elsewhere, nullptr);
    activateWindow(elsewhere);
    EXPECT_TRUE(eventually([&] { return GetForegroundWindow() == elsewhere; }));
}

// The content size is set as the web view does it: the frame comes on top.
void resizeFramed(const TestWindow& window, std::int32_t width, std::int32_t height) {
    window.call([&] {
        resizeWindow(window.handle(), width, height, [&](std::int32_t w, std::int32_t h) {
            RECT frame{0, 0, w, h};
            AdjustWindowRect(&frame, framed, FALSE);
            SetWindowPos(window.handle(), nullptr, 0, 0, frame.right - frame.left,
                         frame.bottom - frame.top, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        });
    });
}

Rect contentOf(HWND window) {
    RECT content{};
    GetClientRect(window, &content);
    return {content.left, content.top, content.right, content.bottom};
}

TEST(Windows, GetTheContentSizeThatThePageAsksFor) {
    const TestWindow window(L"Resized", {100, 100, 500, 400}, framed);
    resizeFramed(window, 333, 444);
    EXPECT_EQ(contentOf(window.handle()), (Rect{0, 0, 333, 444}));
    EXPECT_EQ(windowRectangle(window.handle())->left, 100);
    EXPECT_EQ(windowRectangle(window.handle())->top, 100);
}

TEST(Windows, AreMadeLowerAndMovedUpToFitTheWorkArea) {
    const TestWindow window(L"Resized", {100, 300, 500, 600}, framed);
    const Rect workArea =
        describeMonitor(MonitorFromWindow(window.handle(), MONITOR_DEFAULTTONEAREST))->workArea;
    resizeFramed(window, 333, workArea.height() - 25);
    const auto rectangle = windowRectangle(window.handle());
    EXPECT_LE(rectangle->height(), workArea.height() - 20);
    EXPECT_GT(rectangle->height(), workArea.height() - 60);
    EXPECT_EQ(rectangle->bottom, workArea.bottom);
    EXPECT_EQ(rectangle->left, 100);
    EXPECT_EQ(contentOf(window.handle()).width(), 333);
}

TEST(Windows, NeverLoseTheirTopToASizeBeyondTheScreen) {
    const TestWindow window(L"Resized", {100, 300, 500, 600}, framed);
    const Rect workArea =
        describeMonitor(MonitorFromWindow(window.handle(), MONITOR_DEFAULTTONEAREST))->workArea;
    resizeFramed(window, 333, 30000);
    EXPECT_EQ(windowRectangle(window.handle())->top, workArea.top);
}

TEST(Windows, IgnoreASizeOfNothing) {
    const TestWindow window(L"Resized", {100, 100, 500, 400}, framed);
    const auto before = windowRectangle(window.handle());
    resizeFramed(window, 0, 300);
    resizeFramed(window, 300, 0);
    EXPECT_EQ(windowRectangle(window.handle()), before);
}

}  // namespace
}  // namespace ravelin
