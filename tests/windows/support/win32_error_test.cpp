#include "support/win32_error.h"

#include <gmock/gmock.h>
#include <windows.h>
#include <winhttp.h>

#include "support/win32_handles.h"

namespace ravelin {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(Win32Error, IsTheSystemsTextAndTheCodeInOneLine) {
    const std::string text = win32ErrorText(ERROR_ACCESS_DENIED);
    EXPECT_THAT(text, EndsWith(" (5)"));
    EXPECT_GT(text.size(), 8U);
    EXPECT_THAT(text, Not(HasSubstr("\n")));
    EXPECT_THAT(text, Not(HasSubstr("  ")));
}

TEST(Win32Error, ShowsAResultCodeInItsHexadecimalForm) {
    EXPECT_THAT(win32ErrorText(0x80070005), EndsWith("0x80070005)"));
}

TEST(Win32Error, NamesACodeThatTheSystemDoesNotKnow) {
    EXPECT_EQ(win32ErrorText(0x2FFFFFFF), "Error 805306367");
}

TEST(Win32Error, TellsTheCallingThreadsLastErrorAndLeavesIt) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(lastErrorText(), win32ErrorText(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST(Win32Error, LeavesTheLastErrorWhenTheCodeIsUnknown) {
    SetLastError(ERROR_BUSY);
    static_cast<void>(win32ErrorText(0x2FFFFFFF));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BUSY});
}

TEST(Win32Error, KnowsTheCodesOfTheNetworkLibrary) {
    // The texts come with the library, which is there once it has been used.
    const HttpHandle session(
        WinHttpOpen(L"test", WINHTTP_ACCESS_TYPE_NO_PROXY, nullptr, nullptr, 0));
    ASSERT_TRUE(session);
    EXPECT_THAT(win32ErrorText(ERROR_WINHTTP_TIMEOUT), HasSubstr("12002"));
}

}  // namespace
}  // namespace ravelin
