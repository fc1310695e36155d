#include "scanner/report.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace MacroScan {
namespace {

std::string numberOf(double atSec) {
    ScanResult result;
    result.level = "caution";
    result.matches.push_back({"x", "CAUTION", "", "", atSec});
    const std::string json = ReportJson(result);
    const std::string before =
        R"({"level":"caution","matches":[{"id":"x","severity":"CAUTION","atSec":)";
    const std::string after = "}]}";
    EXPECT_TRUE(json.starts_with(before) && json.ends_with(after)) << json;
    return json.substr(before.size(), json.size() - before.size() - after.size());
}

TEST(ScanReport, WithoutMatchesHasAnEmptyList) {
    EXPECT_EQ(ReportJson({"none", {}}), R"({"level":"none","matches":[]})");
}

TEST(ScanReport, ListsMatchesInOrderWithoutTitlesAndDescriptions) {
    const ScanResult result = {"danger",
                               {{"b", "DANGER", "title", "description", 12.25},
                                {"a", "DANGER", "title", "description", 0},
                                {"c", "CAUTION", "title", "description", 3}}};
    EXPECT_EQ(ReportJson(result),
              R"({"level":"danger","matches":[{"id":"b","severity":"DANGER","atSec":12.25},)"
              R"({"id":"a","severity":"DANGER","atSec":0},)"
              R"({"id":"c","severity":"CAUTION","atSec":3}]})");
}

TEST(ScanReport, WritesTimesWithSixSignificantDigitsAndNoTrailingZeros) {
    EXPECT_EQ(numberOf(0), "0");
    EXPECT_EQ(numberOf(2), "2");
    EXPECT_EQ(numberOf(1.5), "1.5");
    EXPECT_EQ(numberOf(2.1), "2.1");
    EXPECT_EQ(numberOf(12.3456789), "12.3457");
    EXPECT_EQ(numberOf(3600), "3600");
    EXPECT_EQ(numberOf(123456.4), "123456");
    EXPECT_EQ(numberOf(123456.7), "123457");
    EXPECT_EQ(numberOf(100000), "100000");
    EXPECT_EQ(numberOf(-1.5), "-1.5");
}

TEST(ScanReport, WritesVerySmallAndVeryLargeTimesWithAnExponent) {
    EXPECT_EQ(numberOf(0.0001), "0.0001");
    EXPECT_EQ(numberOf(0.000123456789), "0.000123457");
    EXPECT_EQ(numberOf(0.0000999999), "9.99999e-05");
    EXPECT_EQ(numberOf(0.00001), "1e-05");
    EXPECT_EQ(numberOf(999999), "999999");
    EXPECT_EQ(numberOf(999999.4), "999999");
    EXPECT_EQ(numberOf(999999.5), "1e+06");
    EXPECT_EQ(numberOf(1000000), "1e+06");
    EXPECT_EQ(numberOf(1234567), "1.23457e+06");
    EXPECT_EQ(numberOf(-1000000), "-1e+06");
}

TEST(ScanReport, WritesAnyTimeThatAFileMayHold) {
    EXPECT_EQ(numberOf(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(numberOf(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(numberOf(std::numeric_limits<double>::lowest()), "-1.79769e+308");
    EXPECT_EQ(numberOf(std::numeric_limits<double>::denorm_min()), "4.94066e-324");
}

TEST(ScanReport, WritesTimesAsThePrintfGeneralFormatDoes) {
    std::mt19937_64 random(20240611);
    for (int i = 0; i < 20000; ++i) {
        const int exponent = static_cast<int>(random() % 40) - 20;
        const double value = std::ldexp(static_cast<double>(random() % 1000000000), exponent - 20);
        std::array<char, 40> expected{};
        std::snprintf(expected.data(), expected.size(), "%g", value);
        EXPECT_EQ(numberOf(value), expected.data());
    }
}

}  // namespace
}  // namespace MacroScan
