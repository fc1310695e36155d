#include <gtest/gtest.h>

#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/support/live_state.h"

namespace ravelin {
namespace {

constexpr char line20[] = "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1";

class ProfileSettings : public ::testing::Test {
  protected:
    ProfileSettings() { test::resetLiveState(); }
    ~ProfileSettings() override { test::resetLiveState(); }

    // What the live settings are after a line, starting from the defaults.
    static std::string after(const std::string& line) {
        test::resetLiveState();
        applyToolSettings(line);
        return captureToolSettings();
    }
};

TEST_F(ProfileSettings, AreTheDefaultsAtStart) {
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
}

TEST_F(ProfileSettings, LandInTheFieldsThatTheyName) {
    applyToolSettings(line20);
    const ToolSettings& s = toolSettings;
    EXPECT_EQ(s.sh, 1);
    EXPECT_EQ(s.sm, 2);
    EXPECT_EQ(s.ss, 3);
    EXPECT_EQ(s.sms, 4);
    EXPECT_EQ(s.sbtn, 1);
    EXPECT_EQ(s.stype, 1);
    EXPECT_EQ(s.rptMode, 0);
    EXPECT_EQ(s.rptTimes, 7);
    EXPECT_EQ(s.locMode, 1);
    EXPECT_EQ(s.fixedX, -10);
    EXPECT_EQ(s.fixedY, 20);
    EXPECT_EQ(s.ksh, 5);
    EXPECT_EQ(s.ksm, 6);
    EXPECT_EQ(s.kss, 7);
    EXPECT_EQ(s.ksms, 8);
    EXPECT_EQ(s.ksRptMode, 0);
    EXPECT_EQ(s.ksRptTimes, 9);
    EXPECT_EQ(keySpamTargets.first, 65U);
    EXPECT_EQ(keySpamTargets.count, 2);
    EXPECT_EQ(keySpamTargets.keys[0], 65U);
    EXPECT_EQ(keySpamTargets.keys[1], 66U);
    EXPECT_TRUE(keySpamTargets.chord);
    EXPECT_EQ(captureToolSettings(), line20);
}

TEST_F(ProfileSettings, GoBackToTheDefaults) {
    applyToolSettings(line20);
    toolSettings.tkey = false;
    toolSettings.tspd = 3.0F;
    toolSettings.holdKeySpam = true;
    resetToolSettings();
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
    EXPECT_FALSE(toolSettings.tkey);
    EXPECT_EQ(toolSettings.tspd, 3.0F);
    EXPECT_TRUE(toolSettings.holdKeySpam);
}

TEST_F(ProfileSettings, NeedEighteenFields) {
    EXPECT_EQ(after("1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9"), defaultSettingsLine);
    EXPECT_EQ(after(""), defaultSettingsLine);
    EXPECT_EQ(after("1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,"), defaultSettingsLine);
}

TEST_F(ProfileSettings, TakeTheSpamKeyAsOnlyTargetFromAShortLine) {
    for (const auto* line : {"1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,70",
                             "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,70,65|66"}) {
        keySpamTargets.chord = true;
        keySpamTargets.count = 3;
        EXPECT_EQ(after(line), "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,70,70,0");
    }
}

TEST_F(ProfileSettings, StopAtTheFirstFieldThatIsNoNumber) {
    EXPECT_EQ(after("1,2,3,4,x,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1"),
              "1,2,3,4,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32,0");
    EXPECT_EQ(after("1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,99999999999,65,65|66,1"),
              "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,10,32,32,0");
    EXPECT_EQ(after("1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,key,65|66,1"),
              "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,32,32,0");
    EXPECT_EQ(after(",2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1"), defaultSettingsLine);
}

TEST_F(ProfileSettings, IgnoreWhatFollowsANumberAndTheTwentiethField) {
    EXPECT_EQ(after("1x, 2,+3,4 4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1,9,9,9"), line20);
}

TEST_F(ProfileSettings, ReadAtMostThreeTargetsAndSkipBadOnes) {
    const std::string start = "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,";
    EXPECT_EQ(after(start + "1|2|3|4,1"), start + "1|2|3,1");
    EXPECT_EQ(after(start + "1|x|3|4,0"), start + "1|3,0");
    EXPECT_EQ(after(start + "x||99999999999|4,1"), start + ",1");
    EXPECT_EQ(after(start + ",1"), start + ",1");
    EXPECT_EQ(keySpamTargets.count, 0);
    EXPECT_EQ(after(start + "|70|,1"), start + "70,1");
}

TEST_F(ProfileSettings, SwitchTheChordOnForExactlyOne) {
    const std::string start = "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,66,";
    for (const auto* value : {"0", "01", " 1", "1 ", "true", "11"})
        EXPECT_EQ(after(start + value), start + "0") << value;
    EXPECT_EQ(after(start + "1"), start + "1");
    // A line that ends with the comma has nineteen fields: no list of targets.
    EXPECT_EQ(after(start), "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65,0");
}

TEST_F(ProfileSettings, KeepCodesOfAllThirtyTwoBits) {
    keySpamTargets.first = 4294967295U;
    keySpamTargets.keys[0] = 2147483648U;
    const auto line = captureToolSettings();
    EXPECT_EQ(after(line), line);
    EXPECT_EQ(keySpamTargets.first, 4294967295U);
    EXPECT_EQ(keySpamTargets.keys[0], 2147483648U);
}

TEST_F(ProfileSettings, WriteNoMoreThanThreeTargetsWhateverTheCountSays) {
    keySpamTargets.count = 100;
    keySpamTargets.keys[1] = 65;
    keySpamTargets.keys[2] = 66;
    keySpamTargets.keys[3] = 67;
    EXPECT_EQ(captureToolSettings(), "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32|65|66,0");
    keySpamTargets.count = -1;
    EXPECT_EQ(captureToolSettings(), "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,,0");
}

TEST_F(ProfileSettings, SurviveALineOfCommas) {
    EXPECT_EQ(after(std::string(3000000, ',')), defaultSettingsLine);
}

}  // namespace
}  // namespace ravelin
