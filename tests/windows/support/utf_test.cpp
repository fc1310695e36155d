#include "support/utf.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace ravelin {
namespace {

using namespace std::string_literals;

TEST(Utf, WidensAndNarrowsEveryPlane) {
    const std::string utf8 = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x96\xB1";  // a, é, €, a mouse
    const std::wstring utf16 = L"a\u00E9\u20AC\xD83D\xDDB1";
    EXPECT_EQ(widen(utf8), utf16);
    EXPECT_EQ(narrow(utf16), utf8);
}

TEST(Utf, KeepsAnEmptyTextEmpty) {
    EXPECT_EQ(widen(""), L"");
    EXPECT_EQ(narrow(L""), "");
    EXPECT_EQ(ansiToUtf8(""), "");
}

TEST(Utf, KeepsAZeroInside) {
    EXPECT_EQ(widen("a\0b"s), L"a\0b"s);
    EXPECT_EQ(narrow(L"a\0b"s), "a\0b"s);
}

TEST(Utf, ReplacesWhatIsNoText) {
    EXPECT_EQ(widen("a\xFFz"), L"a\xFFFDz");
    EXPECT_EQ(narrow(L"a\xD83Dz"), "a\xEF\xBF\xBDz");  // half of a pair
}

TEST(Utf, ReadsTheUsersCodePage) {
    EXPECT_EQ(ansiToUtf8("plain"), "plain");
    // Whatever the code page is, a text that it can hold comes back as the same characters.
    const wchar_t wide[] = L"\u00E9";
    char ansi[8] = {};
    BOOL lost = FALSE;
    const int length = WideCharToMultiByte(CP_ACP, 0, wide, 1, ansi, sizeof ansi, nullptr,
                                           GetACP() == CP_UTF8 ? nullptr : &lost);
    ASSERT_GT(length, 0);
    if (lost == FALSE) {
        EXPECT_EQ(ansiToUtf8({ansi, static_cast<std::size_t>(length)}), "\xC3\xA9");
    }
}

}  // namespace
}  // namespace ravelin
