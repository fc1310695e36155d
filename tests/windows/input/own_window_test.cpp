#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "input/platform.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin::platform {
namespace {

using test::ChildProgram;
using test::ForeignProgram;
using test::ownPath;
using test::TestWindow;

// Inside the window of a ChildProgram.
constexpr Point childPoint{700, 300};

TEST(OwnWindow, AWindowOfThisProcessIsOwn) {
    const TestWindow window(L"Own", {100, 100, 500, 400});
    EXPECT_TRUE(isOwnWindowAt({100, 100}));
    EXPECT_TRUE(isOwnWindowAt({499, 399}));
    EXPECT_FALSE(isOwnWindowAt({99, 100}));
    EXPECT_FALSE(isOwnWindowAt({500, 399}));
}

TEST(OwnWindow, AControlInsideAWindowBelongsToItsTopLevelWindow) {
    const TestWindow window(L"Own", {100, 100, 500, 400});
    window.call([&] {
        CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 50, 50, 100, 100, window.handle(),
                        nullptr, nullptr, nullptr);
    });
    EXPECT_TRUE(isOwnWindowAt({200, 200}));
}

TEST(OwnWindow, TheDesktopIsNotOwn) {
    EXPECT_FALSE(isOwnWindowAt(childPoint));
}

TEST(OwnWindow, APointOutsideEveryScreenIsNotOwn) {
    EXPECT_FALSE(isOwnWindowAt({-30000, -30000}));
    EXPECT_FALSE(isOwnWindowAt({30000, 30000}));
}

TEST(OwnWindow, AnotherProcessOfThisExecutableIsOwn) {
    const ChildProgram child(ownPath());
    ASSERT_TRUE(child.showsItsWindow());
    EXPECT_TRUE(isOwnWindowAt(childPoint));
}

TEST(OwnWindow, ThePathsAreComparedIgnoringCase) {
    std::wstring path = ownPath();
    std::transform(path.begin(), path.end(), path.begin(), [](wchar_t c) {
        return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    });
    ASSERT_NE(path, ownPath());
    const ChildProgram child(path);
    ASSERT_TRUE(child.showsItsWindow());
    EXPECT_TRUE(isOwnWindowAt(childPoint));
}

TEST(OwnWindow, AnotherExecutableIsNotOwnEvenAboveAnOwnWindow) {
    const TestWindow below(L"Own", ChildProgram::place);
    ASSERT_TRUE(isOwnWindowAt(childPoint));
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    ASSERT_TRUE(child.showsItsWindow());
    EXPECT_FALSE(isOwnWindowAt(childPoint));
}

TEST(OwnWindow, AWindowThatIsGoneIsNotOwn) {
    {
        const ChildProgram child(ownPath());
        ASSERT_TRUE(isOwnWindowAt(childPoint));
    }
    EXPECT_TRUE(test::eventually([] { return !isOwnWindowAt(childPoint); }));
}

}  // namespace
}  // namespace ravelin::platform
