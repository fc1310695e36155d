#include "themes/theme_ground.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

TEST(ThemeGround, BelongsToTheTheme) {
    EXPECT_EQ(groundOfTheme("ravelin"), 0x0f1319U);
    EXPECT_EQ(groundOfTheme("daylight"), 0xe9edf1U);
    EXPECT_EQ(groundOfTheme("contrast"), 0x000000U);
}

TEST(ThemeGround, IsTheDefaultThemesForAnUnknownKey) {
    for (const char* key : {"", "Daylight", "daylight ", "mine"})
        EXPECT_EQ(groundOfTheme(key), 0x0f1319U) << key;
}

TEST(ChosenTheme, IsTheOneWithTheHighestNumber) {
    EXPECT_EQ(chosenTheme({"theme:1:daylight"}), "daylight");
    EXPECT_EQ(chosenTheme({"theme:10:contrast", "theme:2:ravelin", "theme:9:daylight"}),
              "contrast");
    EXPECT_EQ(chosenTheme({"macro", "theme:0:daylight", "typing"}), "daylight");
}

TEST(ChosenTheme, IsNoneWhereNoNoteIsAChoice) {
    EXPECT_EQ(chosenTheme({}), "");
    for (const char* note : {"theme:", "theme:1", "theme:1:", "theme::daylight", "theme:1:mine",
                             "theme:1:daylight:", "theme:x:daylight", "theme:-1:daylight",
                             "theme:1234567890:daylight", " theme:1:daylight"})
        EXPECT_EQ(chosenTheme({note}), "") << note;
}

TEST(ChosenTheme, PassesOverAThemeThatIsNotKnown) {
    EXPECT_EQ(chosenTheme({"theme:1:contrast", "theme:2:mine"}), "contrast");
}

}  // namespace
}  // namespace ravelin
