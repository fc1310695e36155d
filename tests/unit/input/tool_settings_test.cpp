#include "input/tool_settings.h"

#include <gmock/gmock.h>

#include <limits>
#include <stdexcept>

#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

class Settings : public EngineTest {
  protected:
    static double clickerInterval() {
        const ToolSettings& s = toolSettings;
        return intervalMs(s.sh, s.sm, s.ss, s.sms);
    }
};

TEST_F(Settings, AreToldByteForByteWithTheirDefaults) {
    EXPECT_EQ(
        getSettings(),
        R"({"sh":0,"sm":0,"ss":0,"sms":5,"sbtn":0,"stype":0,"rptMode":1,"rptTimes":10,)"
        R"("locMode":0,"fixedX":0,"fixedY":0,"tmv":true,"tclk":true,"tscr":true,"tkey":true,)"
        R"("trel":false,"tspd":1,"tloop":false,"tloopMs":500,"ksh":0,"ksm":0,"kss":0,"ksms":5,)"
        R"("ksRptMode":1,"ksRptTimes":10,"holdAuto":false,"holdKeySpam":false})");
}

TEST_F(Settings, AreToldByteForByteWithEveryFieldChanged) {
    ToolSettings& s = toolSettings;
    updateSpammer("1,2,3,4,5,6,7,8,9");
    updateKeySpam("-1,-2,-3,-4,-5,-6");
    s.fixedX = lowest;
    s.fixedY = largest;
    s.tmv = s.tclk = s.tscr = s.tkey = false;
    s.trel = s.tloop = s.holdAuto = s.holdKeySpam = true;
    s.tspd = 0.25F;
    s.tloopMs = -7;
    EXPECT_EQ(getSettings(),
              R"({"sh":1,"sm":2,"ss":3,"sms":4,"sbtn":5,"stype":6,"rptMode":7,"rptTimes":8,)"
              R"("locMode":9,"fixedX":-2147483648,"fixedY":2147483647,"tmv":false,"tclk":false,)"
              R"("tscr":false,"tkey":false,"trel":true,"tspd":0.25,"tloop":true,"tloopMs":-7,)"
              R"("ksh":-1,"ksm":-2,"kss":-3,"ksms":-4,"ksRptMode":-5,"ksRptTimes":-6,)"
              R"("holdAuto":true,"holdKeySpam":true})");
}

TEST_F(Settings, WriteTheSpeedWithSixSignificantDigits) {
    const std::pair<float, std::string> cases[] = {
        {1.0F, "1"},
        {1.5F, "1.5"},
        {2.0F, "2"},
        {0.1F, "0.1"},
        {1.0F / 3, "0.333333"},
        {123456.7F, "123457"},
        {1e6F, "1e+06"},
        {1234567.0F, "1.23457e+06"},
        {0.0001F, "0.0001"},
        {0.00001F, "1e-05"},
        {-0.5F, "-0.5"},
        {0.0F, "0"},
    };
    for (const auto& [speed, text] : cases) {
        toolSettings.tspd = speed;
        EXPECT_THAT(getSettings(), testing::HasSubstr("\"tspd\":" + text + ",")) << text;
    }
}

TEST_F(Settings, StoreTheClickersNineFieldsInOrder) {
    updateSpammer("0,0,1,500,1,1,0,3,1");
    EXPECT_EQ(clickerInterval(), 1500);
    EXPECT_EQ(toolSettings.sbtn.load(), 1);
    EXPECT_EQ(toolSettings.stype.load(), 1);
    EXPECT_EQ(toolSettings.rptMode.load(), 0);
    EXPECT_EQ(toolSettings.rptTimes.load(), 3);
    EXPECT_EQ(toolSettings.locMode.load(), 1);
    EXPECT_EQ(profiles[0].settingsLine, "0,0,1,500,1,1,0,3,1,0,0,0,0,0,5,1,10,32,32,0");
}

TEST_F(Settings, StoreTheKeySpammersSixFieldsInOrder) {
    updateKeySpam("1,2,3,4,0,6");
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,0,0,0,1,2,3,4,0,6,32,32,0");
}

TEST_F(Settings, ChangeNothingWithTooFewValues) {
    const std::string before = getSettings();
    updateSpammer("1,2,3,4,5,6,7,8");
    updateSpammer("1,2,3,4,5,6,7,8,");
    updateSpammer("");
    updateKeySpam("1,2,3,4,5");
    EXPECT_EQ(getSettings(), before);
    EXPECT_EQ(profiles[0].settingsLine, "");
}

TEST_F(Settings, IgnoreValuesAfterTheLastField) {
    updateSpammer("1,2,3,4,5,6,7,8,9,x,11");
    updateKeySpam("1,2,3,4,5,6,x");
    EXPECT_EQ(profiles[0].settingsLine, "1,2,3,4,5,6,7,8,9,0,0,1,2,3,4,5,6,32,32,0");
}

TEST_F(Settings, AllowBlanksSignsAndTrailingText) {
    updateSpammer(" 1,+2,\t-3,4x,5.9,6 7,7,8,9]");
    EXPECT_EQ(profiles[0].settingsLine.substr(0, 19), "1,2,-3,4,5,6,7,8,9,");
}

TEST_F(Settings, KeepWhatStandsBeforeAValueThatIsNoNumber) {
    try {
        updateSpammer("1,2,x,4,0,0,1,10,0");
        FAIL() << "the error does not escape";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "invalid stoi argument");
    }
    EXPECT_EQ(toolSettings.sh.load(), 1);
    EXPECT_EQ(toolSettings.sm.load(), 2);
    EXPECT_EQ(toolSettings.ss.load(), 0);
    EXPECT_EQ(toolSettings.sms.load(), 5);
    EXPECT_EQ(profiles[0].settingsLine, "") << "a failed update is not synchronised";
}

TEST_F(Settings, RejectAnEmptyValueInTheMiddle) {
    EXPECT_THROW(updateKeySpam("1,,3,4,5,6"), std::invalid_argument);
    EXPECT_EQ(toolSettings.ksh.load(), 1);
    EXPECT_EQ(toolSettings.kss.load(), 0);
}

TEST_F(Settings, RejectAValueBeyondThirtyTwoBits) {
    try {
        updateKeySpam("1,2147483648,3,4,5,6");
        FAIL() << "the error does not escape";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "stoi argument out of range");
    }
    EXPECT_EQ(toolSettings.ksh.load(), 1);
    updateKeySpam("2147483647,-2147483648,3,4,5,6");
    EXPECT_EQ(toolSettings.ksh.load(), largest);
    EXPECT_EQ(toolSettings.ksm.load(), lowest);
}

TEST_F(Settings, HaveAnIntervalOfAtLeastAMillisecond) {
    updateSpammer("0,0,0,0,0,0,1,10,0");
    EXPECT_EQ(clickerInterval(), 1);
    updateSpammer("-5,0,0,0,0,0,1,10,0");
    EXPECT_EQ(clickerInterval(), 1);
}

TEST_F(Settings, AddUpTheIntervalWithoutRangeChecks) {
    EXPECT_EQ(intervalMs(0, 0, 90, 0), 90'000);
    EXPECT_EQ(intervalMs(1, -60, 0, 7), 7);
    EXPECT_EQ(intervalMs(1, 1, 1, 1), 3'661'001);
    EXPECT_EQ(intervalMs(largest, largest, largest, largest),
              largest * 3'600'000.0 + largest * 60'000.0 + largest * 1000.0 + largest);
}

TEST_F(Settings, HoldTheWaitBelowTheOneWithoutEnd) {
    EXPECT_EQ(waitMs(1), 1U);
    EXPECT_EQ(waitMs(4294967294.0), 4294967294U);
    EXPECT_EQ(waitMs(4294967295.0), 4294967294U);
    EXPECT_EQ(waitMs(7.7e15), 4294967294U);
}

}  // namespace
}  // namespace ravelin::test
