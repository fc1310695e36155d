#include "persistence/session_settings.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "support/text.h"
#include "tests/support/live_state.h"

namespace ravelin {
namespace {

constexpr char defaults[] =
    "0,0,0,5,0,0,1,10,0,0,0,1,1,1,1,0,1,0,500,119,118,0,117,0,0,0,5,1,10,120,32,32,0,0,0,121";
// Every field differs from its default.
constexpr char changed[] =
    "1,2,3,4,1,1,0,7,1,-8,9,0,0,0,0,1,0.25,1,12,20,21,0,23,24,25,26,27,0,29,30,31,65|66|67,1,1,1,"
    "36";

class SessionSettings : public ::testing::Test {
  protected:
    SessionSettings() { test::resetLiveState(); }
    ~SessionSettings() override { test::resetLiveState(); }

    static std::vector<std::string> fieldsOf(const std::string& line) {
        return splitList(line, ',');
    }
    static std::string lineOf(const std::vector<std::string>& fields) {
        std::string line;
        for (const auto& field : fields)
            line += (line.empty() ? "" : ",") + field;
        return line;
    }
    // The changed line cut after `count` fields.
    static std::string cut(std::size_t count) {
        auto fields = fieldsOf(changed);
        fields.resize(count);
        return lineOf(fields);
    }
    // The changed line with one field, counted from 1, replaced.
    static std::string with(std::size_t number, const std::string& text) {
        auto fields = fieldsOf(changed);
        fields[number - 1] = text;
        return lineOf(fields);
    }
    // The defaults with fields `first` to `last`, counted from 1, as in the changed line.
    static std::vector<std::string> changedIn(
        std::vector<std::pair<std::size_t, std::size_t>> ranges) {
        auto fields = fieldsOf(defaults);
        const auto other = fieldsOf(changed);
        for (const auto& [first, last] : ranges)
            for (auto i = first - 1; i < last; ++i)
                fields[i] = other[i];
        return fields;
    }
    static std::vector<std::string> after(const std::string& line) {
        test::resetLiveState();
        applySessionSettings(line);
        return fieldsOf(sessionSettingsLine());
    }
};

TEST_F(SessionSettings, AreWrittenWithTheirDefaults) {
    EXPECT_EQ(sessionSettingsLine(), defaults);
    EXPECT_EQ(fieldsOf(defaults).size(), sessionFieldCount);
}

TEST_F(SessionSettings, LandInTheFieldsThatTheyName) {
    applySessionSettings(changed);
    const ToolSettings& s = toolSettings;
    EXPECT_EQ(s.sh, 1);
    EXPECT_EQ(s.sms, 4);
    EXPECT_EQ(s.fixedX, -8);
    EXPECT_EQ(s.fixedY, 9);
    EXPECT_FALSE(s.tmv);
    EXPECT_FALSE(s.tclk);
    EXPECT_FALSE(s.tscr);
    EXPECT_FALSE(s.tkey);
    EXPECT_TRUE(s.trel);
    EXPECT_EQ(s.tspd, 0.25F);
    EXPECT_TRUE(s.tloop);
    EXPECT_EQ(s.tloopMs, 12);
    EXPECT_EQ(hotkeys.rec, 20U);
    EXPECT_EQ(hotkeys.play, 21U);
    EXPECT_EQ(hotkeys.autoClicker, 23U);
    EXPECT_EQ(s.ksh, 24);
    EXPECT_EQ(s.ksRptTimes, 29);
    EXPECT_EQ(hotkeys.keySpam, 30U);
    EXPECT_EQ(keySpamTargets.first, 31U);
    EXPECT_EQ(keySpamTargets.count, 3);
    EXPECT_EQ(keySpamTargets.keys[2], 67U);
    EXPECT_TRUE(keySpamTargets.chord);
    EXPECT_TRUE(s.holdAuto);
    EXPECT_TRUE(s.holdKeySpam);
    EXPECT_EQ(hotkeys.unlock, 36U);
    EXPECT_EQ(sessionSettingsLine(), changed);
}

TEST_F(SessionSettings, NeedTwentyThreeFields) {
    for (std::size_t count = 0; count < 23; ++count)
        EXPECT_EQ(after(cut(count)), fieldsOf(defaults)) << count;
    // An empty field at the end is no field.
    EXPECT_EQ(after(cut(22) + ","), fieldsOf(defaults));
}

TEST_F(SessionSettings, ReachAsFarAsTheirFields) {
    for (std::size_t count = 23; count <= sessionFieldCount; ++count) {
        auto expected = changedIn({{1, 23}});
        if (count >= 31) expected = changedIn({{1, 31}});
        if (count >= 33) expected = changedIn({{1, 33}});
        if (count >= 35) expected = changedIn({{1, 35}});
        if (count >= 36) expected = changedIn({{1, 36}});
        // Without a list of its own the key spam key is the only target.
        if (count >= 31 && count < 33) expected[31] = "31";
        EXPECT_EQ(after(cut(count)), expected) << count;
    }
}

TEST_F(SessionSettings, MakeTheSpamKeyTheOnlyTargetOfAShortLine) {
    keySpamTargets.first = 77;
    keySpamTargets.count = 3;
    keySpamTargets.chord = true;
    applySessionSettings(cut(30));
    EXPECT_EQ(keySpamTargets.first, 77U);
    EXPECT_EQ(keySpamTargets.count, 1);
    EXPECT_EQ(keySpamTargets.keys[0], 77U);
    EXPECT_FALSE(keySpamTargets.chord);
}

TEST_F(SessionSettings, EndAGroupAtAFieldThatIsNoNumber) {
    EXPECT_EQ(after(with(1, "x")), changedIn({{24, 36}}));
    EXPECT_EQ(after(with(3, "x")), changedIn({{1, 2}, {24, 36}}));
    EXPECT_EQ(after(with(17, "fast")), changedIn({{1, 16}, {24, 36}}));
    EXPECT_EQ(after(with(17, "1e99")), changedIn({{1, 16}, {24, 36}}));
    EXPECT_EQ(after(with(21, "")), changedIn({{1, 20}, {24, 36}}));
    EXPECT_EQ(after(with(23, "99999999999")), changedIn({{1, 22}, {24, 36}}));
    EXPECT_EQ(after(with(24, "x")), changedIn({{1, 23}, {32, 36}}));
    EXPECT_EQ(after(with(30, "x")), changedIn({{1, 29}, {32, 36}}));
    EXPECT_EQ(after(with(31, "x")), changedIn({{1, 30}, {32, 36}}));
    EXPECT_EQ(after(with(36, "x")), changedIn({{1, 35}}));
}

TEST_F(SessionSettings, StoreAFlagAsTrueOnlyForExactlyOne) {
    for (const auto* text : {"", "true", "2", "01", " 1", "1 "}) {
        for (const std::size_t flag : {12U, 13U, 14U, 15U, 16U, 18U, 33U, 34U, 35U}) {
            auto expected = fieldsOf(changed);
            expected[flag - 1] = "0";
            EXPECT_EQ(after(with(flag, text)), expected) << flag << text;
        }
    }
}

TEST_F(SessionSettings, IgnoreTheTwentySecondField) {
    for (const auto* text : {"", "x", "5", "99999999999999"})
        EXPECT_EQ(after(with(22, text)), fieldsOf(changed));
}

TEST_F(SessionSettings, ReadTargetsOneByOne) {
    auto expected = fieldsOf(changed);
    expected[31] = "65|67";
    EXPECT_EQ(after(with(32, "65|x|67|68")), expected);
    expected[31] = "";
    EXPECT_EQ(after(with(32, "")), expected);
    EXPECT_EQ(keySpamTargets.count, 0);
    EXPECT_EQ(after(with(32, "|||65")), expected);
}

TEST_F(SessionSettings, IgnoreFieldsBeyondTheLast) {
    EXPECT_EQ(after(std::string(changed) + ",1,2,3"), fieldsOf(changed));
    EXPECT_EQ(after(changed + std::string(1000000, ',')), fieldsOf(changed));
}

TEST_F(SessionSettings, WriteTheSpeedWithSixDigits) {
    const struct {
        const char* read;
        const char* written;
    } cases[] = {{"1.5", "1.5"},       {"1.50000001", "1.5"}, {"2.7182818", "2.71828"},
                 {"0.1", "0.1"},       {"1e7", "1e+07"},      {"1234567", "1.23457e+06"},
                 {"0.00001", "1e-05"}, {" 3x", "3"},          {"-0", "-0"},
                 {"0x10", "16"}};
    for (const auto& c : cases) {
        auto expected = fieldsOf(changed);
        expected[16] = c.written;
        EXPECT_EQ(after(with(17, c.read)), expected) << c.read;
    }
}

TEST_F(SessionSettings, KeepTheSpeedHeldBeforeInPlaceOfOneThatIsNotFinite) {
    for (const auto* speed : {"inf", "-inf", "nan", "-nan", "INFINITY", " nan(1)", "infx"}) {
        auto expected = fieldsOf(changed);
        expected[16] = "1";
        EXPECT_EQ(after(with(17, speed)), expected) << speed;  // all fields after it are applied
        expected[16] = "2.5";
        toolSettings.tspd = 2.5F;
        applySessionSettings(with(17, speed));
        EXPECT_EQ(fieldsOf(sessionSettingsLine()), expected) << speed;
        EXPECT_NE(getSettings().find("\"tspd\":2.5,"), std::string::npos);
    }
}

TEST_F(SessionSettings, KeepCodesOfAllThirtyTwoBits) {
    hotkeys.rec = 4294967295U;
    hotkeys.unlock = 2147483648U;
    const auto line = sessionSettingsLine();
    EXPECT_EQ(lineOf(after(line)), line);
    EXPECT_EQ(hotkeys.rec, 4294967295U);
}

}  // namespace
}  // namespace ravelin
