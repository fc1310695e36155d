#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"

namespace ravelin {
namespace {

using samples::base64;
using samples::Bytes;
using samples::fontOfBytes;
using samples::jsonString;

constexpr char badBase64[] = "invalid base64 for skin.font";
constexpr char tooLarge[] = "font exceeds the 2 MB decoded cap";
constexpr char noFont[] = "invalid font magic bytes";
constexpr char accepted[] = "OK skin 0 pieces +font";
constexpr std::string_view trueType("\0\1\0\0", 4);

std::string verdictOfValue(std::string_view value) {
    return samples::verdict(samples::withFont(value));
}

std::string verdictOf(const Bytes& font) {
    return verdictOfValue(jsonString(base64(font)));
}

TEST(SkinFont, MayBeOpenTypeOrTrueType) {
    EXPECT_EQ(verdictOf(fontOfBytes(5000, "OTTO")), accepted);
    EXPECT_EQ(verdictOf(fontOfBytes(5000, trueType)), accepted);
    for (const std::string_view magic : {"OTTA", "otto", "XOTTO", "wOFF", "wOF2", "ttcf", "true"})
        EXPECT_EQ(verdictOf(fontOfBytes(5000, magic)), noFont) << magic;
    for (std::size_t i = 0; i < 4; ++i)
        for (const std::string_view magic : {std::string_view("OTTO"), trueType}) {
            Bytes font = fontOfBytes(5000, magic);
            font[i] ^= 0x80;
            EXPECT_EQ(verdictOf(font), noFont);
        }
}

TEST(SkinFont, HasAtLeast1024Bytes) {
    for (const std::string_view magic : {std::string_view("OTTO"), trueType}) {
        EXPECT_EQ(verdictOf(fontOfBytes(1024, magic)), accepted);
        EXPECT_EQ(verdictOf(fontOfBytes(1023, magic)), noFont);
        EXPECT_EQ(verdictOf(fontOfBytes(4, magic)), noFont);
    }
    EXPECT_EQ(verdictOf({'O'}), noFont);
}

TEST(SkinFont, HasAtMost2Megabytes) {
    for (const std::size_t over : {1U, 2U, 3U}) {
        EXPECT_EQ(verdictOf(fontOfBytes(2'097'153 - over)), accepted);
        EXPECT_EQ(verdictOf(fontOfBytes(2'097'152 + over)), tooLarge);
    }
}

TEST(SkinFont, IsMeasuredBeforeItsMagicBytesAreRead) {
    EXPECT_EQ(verdictOf(fontOfBytes(2'097'153, "wOFF")), tooLarge);
}

TEST(SkinFont, MustBeWellFormedBase64) {
    const std::string good = base64(fontOfBytes(1024));
    for (const std::string& text :
         {std::string("!"), std::string("===="), good + "=", good.substr(1), "\\n" + good,
          good.substr(0, 76) + "\\r\\n" + good.substr(76), good + good})
        EXPECT_EQ(verdictOfValue(jsonString(text)), badBase64) << text.substr(0, 80);
    EXPECT_EQ(verdictOfValue("false"), badBase64);
    EXPECT_EQ(verdictOfValue("[]"), badBase64);
}

TEST(SkinFont, IsReadFromTheRawTextOfAValueThatIsNoString) {
    // Four letters of the alphabet, hence well-formed.
    EXPECT_EQ(verdictOfValue("null"), noFont);
    EXPECT_EQ(verdictOfValue("true"), noFont);
}

TEST(SkinFont, MayHaveEscapesInItsText) {
    std::string text = base64(fontOfBytes(1500, trueType));
    text.replace(0, 1, "\\u0041");
    EXPECT_EQ(verdictOfValue(jsonString(text)), accepted);
}

}  // namespace
}  // namespace ravelin
