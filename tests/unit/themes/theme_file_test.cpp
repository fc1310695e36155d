#include "themes/theme_file.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/temp_folder.h"
#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"

namespace ravelin {
namespace {

using samples::coloursOnly;
using samples::Result;

class ThemeFile : public testing::Test {
  protected:
    const test::TempFolder folder;
    std::string path = folder.file("theme.json");

    void write(std::string_view bytes) const { test::writeBytes(path, bytes); }
    Result read() const {
        Result result;
        result.valid =
            readThemeFile(path, result.theme, &result.error, &result.pieces, &result.font);
        return result;
    }
};

TEST_F(ThemeFile, GivesTheThemeAndWhereItCameFrom) {
    write(coloursOnly().json());
    const Result result = read();
    EXPECT_EQ(verdict(result), "OK colours");
    EXPECT_EQ(result.theme.name, "Harbour");
    EXPECT_EQ(result.theme.sourcePath, path);
}

TEST_F(ThemeFile, GivesWhatTheSkinBrings) {
    const auto image = samples::jsonString(samples::base64(samples::png(68, 40)));
    const auto font = samples::jsonString(samples::base64(samples::fontOfBytes(2000)));
    auto skin = samples::skinOf(samples::Object{{{"switch", image}, {"switch.on", image}}});
    write(samples::withSkin(skin.add("font", font)));
    EXPECT_EQ(verdict(read()), "OK skin 2 pieces +font");
}

TEST_F(ThemeFile, ThatCannotBeOpenedIsRejected) {
    EXPECT_EQ(verdict(read()), "could not open file");
    path = folder.file("missing") + "/theme.json";
    EXPECT_EQ(verdict(read()), "could not open file");
    path = folder.path();
    EXPECT_EQ(verdict(read()), "could not open file");
}

TEST_F(ThemeFile, ThatIsEmptyIsRejected) {
    write("");
    EXPECT_EQ(verdict(read()), "file is empty");
}

TEST_F(ThemeFile, MayHave12582912BytesAndNoMore) {
    std::string text = coloursOnly().json();
    text.resize(12'582'912, '\n');
    write(text);
    EXPECT_EQ(verdict(read()), "OK colours");
    text += '\n';
    write(text);
    EXPECT_EQ(verdict(read()), "file exceeds the 12 MB cap");
}

TEST_F(ThemeFile, IsReadByteForByte) {
    // A text-mode reader on Windows would stop at the second of these and shorten the first.
    for (const char* end : {"\r\n", "\x1A"}) {
        write(coloursOnly().json() + end);
        EXPECT_EQ(verdict(read()), end[0] == '\r' ? "OK colours" : "invalid or missing name");
    }
}

TEST_F(ThemeFile, IsLeftAloneWhenItsChecksFail) {
    write(coloursOnly().set("accent", "0").json());
    const Result result = read();
    EXPECT_EQ(verdict(result), "invalid or missing accent");
    EXPECT_EQ(result.theme.sourcePath, "");
    EXPECT_EQ(result.pieces, 0);
}

TEST_F(ThemeFile, WorksWithoutPlacesForTheDetails) {
    ThemeRecord theme;
    EXPECT_FALSE(readThemeFile(path, theme));
    write(coloursOnly().json());
    EXPECT_TRUE(readThemeFile(path, theme));
}

// A file that loses its end between being measured and being read.
class ShrinkingFile : public std::stringbuf {
  public:
    using std::stringbuf::stringbuf;

  protected:
    pos_type seekoff(off_type, std::ios::seekdir, std::ios::openmode) override { return 1000; }
};

TEST(ThemeText, ThatEndsEarlyCannotBeRead) {
    ShrinkingFile file(coloursOnly().json(), std::ios::in);
    std::istream in(&file);
    std::string text;
    EXPECT_EQ(readThemeText(in, text), "could not read file");
}

TEST(ThemeText, IsTheWholeStream) {
    std::istringstream in(std::string("a\0b\r\nc", 6));
    std::string text;
    EXPECT_EQ(readThemeText(in, text), "");
    EXPECT_EQ(text, std::string("a\0b\r\nc", 6));
}

}  // namespace
}  // namespace ravelin
