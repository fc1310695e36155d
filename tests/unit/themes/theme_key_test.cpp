#include "themes/theme_key.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

class ThemeKey : public testing::Test {
  protected:
    const test::TempFolder folder;
    const std::string file = folder.file("theme.txt");

    std::string keyOf(std::string_view bytes) const {
        test::writeBytes(file, bytes);
        return readThemeKey(file);
    }
};

TEST_F(ThemeKey, IsTheDefaultWithoutAFile) {
    EXPECT_EQ(readThemeKey(file), "ravelin");
    EXPECT_EQ(readThemeKey(folder.file("missing") + "/theme.txt"), "ravelin");
}

TEST_F(ThemeKey, IsTheDefaultWhenTheFirstLineIsEmpty) {
    EXPECT_EQ(keyOf(""), "ravelin");
    EXPECT_EQ(keyOf("\n"), "ravelin");
    EXPECT_EQ(keyOf("\r\n"), "ravelin");
    EXPECT_EQ(keyOf("\r\nmidnight\r\n"), "ravelin");
}

TEST_F(ThemeKey, IsTheFirstLineWithoutItsEnd) {
    EXPECT_EQ(keyOf("midnight"), "midnight");
    EXPECT_EQ(keyOf("midnight\n"), "midnight");
    EXPECT_EQ(keyOf("midnight\r\nother\r\n"), "midnight");
    EXPECT_EQ(keyOf(" a key, as it is \nother"), " a key, as it is ");
}

TEST_F(ThemeKey, KeepsALoneCarriageReturnAtTheVeryEnd) {
    EXPECT_EQ(keyOf("midnight\r"), "midnight\r");
    EXPECT_EQ(keyOf("\r"), "\r");
}

TEST_F(ThemeKey, IsTheDefaultForAFolder) {
    EXPECT_EQ(readThemeKey(folder.path()), "ravelin");
}

TEST_F(ThemeKey, StartsAsTheDefault) {
    EXPECT_EQ(currentThemeKey, "ravelin");
}

}  // namespace
}  // namespace ravelin
