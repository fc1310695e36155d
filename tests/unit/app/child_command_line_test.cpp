#include "app/child_command_line.h"

#include <gtest/gtest.h>

#include <limits>

namespace ravelin {
namespace {

using platform::Point;

TEST(ChildCommandLine, GivesAllFiveFields) {
    const auto fields = readChildFields("--child Auto clicker|panel-spammer|640|300|daylight");
    EXPECT_EQ(fields.title, "Auto clicker");
    EXPECT_EQ(fields.panelId, "panel-spammer");
    EXPECT_EQ(fields.tornOffAt, (Point{640, 300}));
    EXPECT_EQ(fields.themeKey, "daylight");
}

TEST(ChildCommandLine, MissingFieldsKeepTheirDefaults) {
    const auto fields = readChildFields("--child Panel|panel-spammer|500|300");
    EXPECT_EQ(fields.themeKey, "ravelin");
    EXPECT_EQ(windowCorner(*fields.tornOffAt), (Point{350, 280}));

    const auto titleOnly = readChildFields("--child Keys");
    EXPECT_EQ(titleOnly, (ChildFields{"Keys", "", std::nullopt, "ravelin"}));
    EXPECT_EQ(readChildFields("--child "), ChildFields());
}

TEST(ChildCommandLine, WithoutTheBlankBehindTheSwitchEverythingIsDefault) {
    EXPECT_EQ(readChildFields("--child"), ChildFields());
    EXPECT_EQ(readChildFields("--child|x|panel-ui"), ChildFields());
    EXPECT_EQ(ChildFields().title, "Panel");
    EXPECT_EQ(ChildFields().panelId, "");
}

TEST(ChildCommandLine, AllQuotesAreRemovedAndTheFirstSwitchCounts) {
    const auto fields = readChildFields("before --child \"A \"b\"|panel-ui\" --child C|x");
    EXPECT_EQ(fields.title, "A b");
    EXPECT_EQ(fields.panelId, "panel-ui --child C");
}

TEST(ChildCommandLine, APlaceNeedsTwoNumbers) {
    EXPECT_FALSE(readChildFields("--child A|panel-ui|500").tornOffAt);
    EXPECT_FALSE(readChildFields("--child A|panel-ui|500||daylight").tornOffAt);
    EXPECT_FALSE(readChildFields("--child A|panel-ui|left|300").tornOffAt);
    EXPECT_FALSE(readChildFields("--child A|panel-ui|99999999999|300").tornOffAt);
    EXPECT_EQ(readChildFields("--child A|panel-ui|-5|-7").tornOffAt, (Point{-5, -7}));
}

TEST(ChildCommandLine, ACornerBeyondTheNumbersStaysAtTheirEnd) {
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(windowCorner({least, least + 20}), (Point{least, least}));
}

TEST(ChildCommandLine, ArgumentsAreReadBackAsTheyWereWritten) {
    const ChildFields fields{"Key spammer", "panel-keyspam", Point{-20, 1400}, "midnight"};
    EXPECT_EQ(childArguments(fields), "--child \"Key spammer|panel-keyspam|-20|1400|midnight\"");
    EXPECT_EQ(readChildFields(childArguments(fields)), fields);
    const ChildFields nowhere{"A", "panel-ui", std::nullopt, "ravelin"};
    EXPECT_EQ(readChildFields(childArguments(nowhere)), nowhere);
}

TEST(ChildCommandLine, NothingInATitleOrThemeEndsItsFieldOrBecomesASwitch) {
    const ChildFields fields{"--scan-macro=a|b\"c\n", "panel-ui", Point{1, 2}, "\"|--dark"};
    const auto read = readChildFields(childArguments(fields));
    EXPECT_EQ(read.title, "scan-macro=abc");
    EXPECT_EQ(read.panelId, "panel-ui");
    EXPECT_EQ(read.themeKey, "dark");
    const ChildFields empty{"|", "panel-ui", Point{1, 2}, "\""};
    EXPECT_EQ(readChildFields(childArguments(empty)).title, "Panel");
    EXPECT_EQ(readChildFields(childArguments(empty)).themeKey, "ravelin");
}

}  // namespace
}  // namespace ravelin
