#include "persistence/macro_file.h"

#include <gtest/gtest.h>

#include "persistence/macro_settings.h"
#include "persistence/session_settings.h"
#include "tests/support/live_state.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

using namespace std::string_literals;

constexpr char liveLine[] = "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1";
constexpr char session[] =
    "11,12,13,14,15,16,17,18,19,20,21,0,0,0,0,1,9,1,77,1,2,0,3,31,32,33,34,35,36,4,37,38|39,1,1,1,"
    "5";
constexpr char sessionAsProfile[] = "11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,38|39,1";

class MacroFile : public ::testing::Test {
  protected:
    MacroFile() {
        test::resetLiveState();
        applyToolSettings(liveLine);
    }
    ~MacroFile() override { test::resetLiveState(); }

    Profile read(const std::string& text) const {
        Profile profile;
        test::writeBytes(path, text);
        EXPECT_EQ(readMacroFile(path, profile), "");
        return profile;
    }
    std::string errorOf(const std::string& text) const {
        Profile profile{"untouched", "line", {UnifiedEvent{}}};
        test::writeBytes(path, text);
        const auto error = readMacroFile(path, profile);
        EXPECT_EQ(profile.name, "untouched");
        EXPECT_EQ(profile.settingsLine, "line");
        EXPECT_EQ(profile.events.size(), 1U);
        return error;
    }

    test::TempFolder folder;
    std::string path = folder.file("test.rvnmacro");
};

constexpr char missingName[] = "That macro file is missing its profile name.";

TEST_F(MacroFile, HoldsANameSettingsAndEvents) {
    const auto macro =
        read("My macro\nSETTINGS:"s + session + "\n3,0.5,0,0,0,65,1,0\n3,0.75,0,0,0,65,0,0\n");
    EXPECT_EQ(macro.name, "My macro");
    EXPECT_EQ(macro.settingsLine, sessionAsProfile);
    EXPECT_EQ(macro.events, (EventList{{3, 0.5, 0, 0, 0, 65, 1, 0}, {3, 0.75, 0, 0, 0, 65, 0, 0}}));
    EXPECT_EQ(captureToolSettings(), liveLine);
}

TEST_F(MacroFile, CannotBeOpenedWhenItIsAFolder) {
    Profile profile{"untouched", "", {}};
    EXPECT_EQ(readMacroFile(folder.path(), profile), "Couldn't open that macro file.");
    EXPECT_EQ(profile.name, "untouched");
}

TEST_F(MacroFile, CannotBeReadWhenItIsMissing) {
    Profile profile;
    EXPECT_EQ(readMacroFile(folder.file("missing"), profile), "Couldn't open that macro file.");
    EXPECT_EQ(readMacroFile("", profile), "Couldn't open that macro file.");
}

TEST_F(MacroFile, NeedsANameInItsFirstLine) {
    for (const auto& text :
         {""s, "\n"s, "\r\n"s, "\r"s, "\nname\n0,0,0,0,0,0,0,0\n"s, "\r\nname\r\n"s})
        EXPECT_EQ(errorOf(text), missingName);
}

TEST_F(MacroFile, MayHoldANameAlone) {
    for (const auto& text : {"name"s, "name\n"s, "name\r\n"s, "name\n\n\n"s, "name\r"s}) {
        const auto macro = read(text);
        EXPECT_EQ(macro.name, "name");
        EXPECT_EQ(macro.settingsLine, liveLine);
        EXPECT_TRUE(macro.events.empty());
    }
}

TEST_F(MacroFile, ReadsAnEventLineAsSecondLine) {
    const auto macro = read("name\n0,1,2,3,0,0,0,0\n0,2,3,4,0,0,0,0");
    EXPECT_EQ(macro.settingsLine, liveLine);
    EXPECT_EQ(macro.events.size(), 2U);
    EXPECT_EQ(macro.events[0].time, 1.0);
}

TEST_F(MacroFile, ReadsBothLineEndsAlike) {
    const std::string text =
        "name\nSETTINGS:"s + session + "\n\n3,0.5,0,0,0,65,1,0\nbad\n0,1,2,3,0,0,0,0\n";
    std::string windows;
    for (const char c : text)
        windows += c == '\n' ? "\r\n"s : std::string(1, c);
    const auto one = read(text);
    const auto other = read(windows);
    EXPECT_EQ(one.name, other.name);
    EXPECT_EQ(one.settingsLine, other.settingsLine);
    EXPECT_TRUE(one.events == other.events);
    EXPECT_EQ(one.events.size(), 2U);
}

TEST_F(MacroFile, StripsOneCarriageReturnALine) {
    EXPECT_EQ(read("name\r\r\n").name, "name\r");
    EXPECT_EQ(read("na\rme\r\n").name, "na\rme");
}

TEST_F(MacroFile, SkipsEventLinesThatDoNotConvert) {
    const auto macro = read(
        "name\nrubbish\n0,1,0,0,0,0,0,0\n0,2,0,0,0,0,0\n0,x,0,0,0,0,0,0\n\n"
        "0,3,0,0,0,0,0,0,extra\nSETTINGS:1,2\nPROFILE:x\n0,4,0,0,0,0,0,0");
    ASSERT_EQ(macro.events.size(), 3U);
    EXPECT_EQ(macro.events[0].time, 1.0);
    EXPECT_EQ(macro.events[1].time, 3.0);
    EXPECT_EQ(macro.events[2].time, 4.0);
}

TEST_F(MacroFile, UsesTheLiveSettingsForAShortSettingsLine) {
    std::string line = session;
    for (int field = 0; field < 14; ++field)
        line.resize(line.rfind(','));
    ASSERT_EQ(std::count(line.begin(), line.end(), ','), 21);  // 22 fields
    const auto macro = read("name\nSETTINGS:" + line + "\n0,1,0,0,0,0,0,0\n");
    EXPECT_EQ(macro.settingsLine, liveLine);
    EXPECT_EQ(macro.events.size(), 1U);
    EXPECT_EQ(read("name\nSETTINGS:\n0,1,0,0,0,0,0,0\n").events.size(), 1U);
}

TEST_F(MacroFile, KnowsItsSettingsInTheSecondLineOnly) {
    const auto macro = read("name\n\nSETTINGS:"s + session + "\n");
    EXPECT_EQ(macro.settingsLine, liveLine);
    EXPECT_EQ(read("SETTINGS:1\nname\n").name, "SETTINGS:1");
    EXPECT_EQ(read("name\n SETTINGS:"s + session + "\n").settingsLine, liveLine);
}

TEST_F(MacroFile, ReadsEventsOfUnknownKinds) {
    const auto macro = read("name\n-7,1,0,0,0,0,0,0\n99,1,0,0,0,0,0,0\n");
    EXPECT_EQ(macro.events[0].kind, -7);
    EXPECT_EQ(macro.events[1].kind, 99);
}

// What is left of files that are no macro files, or not whole ones any more.
TEST_F(MacroFile, SurvivesDamage) {
    const std::string zeros(100000, '\0');
    std::string binary;
    for (int i = 0; i < 200000; ++i)
        binary += static_cast<char>(i * 7919 >> 3);
    const struct {
        std::string text;
        std::size_t nameSize;
        std::size_t events;
    } cases[] = {
        {zeros, zeros.size(), 0},
        {zeros + "\n0,1,0,0,0,0,0,0\n", zeros.size(), 1},
        {"name\n" + zeros + "\n0,1,0,0,0,0,0,0\n", 4, 1},
        {"name\n0,1,0,0,0,0,0,0\n0,2,0,0,0,0,0,1", 4, 2},  // cut within the last field
        {"name\n0,1,0,0,0,0,0,0\n0,2,0,0,0,0,0,", 4, 1},
        {"name\n0,1,0,0,0,0,0,0\r", 4, 1},
        {"name\nSETTINGS:" + std::string(1000000, ',') + "\n0,1,0,0,0,0,0,0\n", 4, 1},
        {"name\n" + std::string(1000000, '1') + "\n0,1,0,0,0,0,0,0\n", 4, 1},
        {"name\n0," + std::string(1000000, '1') + ",0,0,0,0,0,0\n0,1,0,0,0,0,0,0\n", 4, 1},
        {"name\n0,0." + std::string(1000000, '1') + ",0,0,0,0,0,0\n0,1,0,0,0,0,0,0\n", 4, 2},
        {"name\n" + std::string(1000000, ',') + "\n0,1,0,0,0,0,0,0\n", 4, 1},
        {"name" + std::string(1000000, '\n') + "0,1,0,0,0,0,0,0", 4, 1},
        {"name\n0,1,0,0,0,0,0,0\n\x1A\n0,2,0,0,0,0,0,0\n", 4, 2},
        {"\xEF\xBB\xBFname\n0,1,0,0,0,0,0,0\n", 7, 1},
        {"name\n" + binary + "\n0,1,0,0,0,0,0,0\n", 4, 1},
    };
    for (const auto& c : cases) {
        const auto macro = read(c.text);
        EXPECT_EQ(macro.name.size(), c.nameSize) << c.text.substr(0, 30);
        EXPECT_EQ(macro.events.size(), c.events) << c.text.substr(0, 30);
    }
}

TEST_F(MacroFile, IsWrittenWithTheProfilesOwnSettings) {
    const Profile profile{"My macro", sessionAsProfile, {{3, 0.5, -1, 2, 4, 65, 1, -120}, {}}};
    EXPECT_EQ(writeMacroFile(path, profile), "");
    EXPECT_EQ(test::readBytes(path),
              "My macro\r\n"
              "SETTINGS:11,12,13,14,15,16,17,18,19,20,21,1,1,1,1,0,1,0,500,119,118,0,117,"
              "31,32,33,34,35,36,120,37,38|39,1,0,0,121\r\n"
              "3,0.5,-1,2,4,65,1,-120\r\n0,0,0,0,0,0,0,0\r\n");
}

TEST_F(MacroFile, IsReadAsItWasWritten) {
    EventList events;
    for (int i = 0; i < 3000; ++i) {
        UnifiedEvent event;
        event.kind = i % 6;
        event.time = i / 8.0;
        event.x = i - 1500;
        event.wheel = -i;
        event.vk = static_cast<std::uint32_t>(i) * 1431655U;
        event.down = i % 2 == 0 ? 1 : 0;
        events.append(event);
    }
    for (const auto* line : {sessionAsProfile, "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,,0"}) {
        const Profile profile{"PROFILE:a,b", line, events};
        ASSERT_EQ(writeMacroFile(path, profile), "");
        Profile again;
        ASSERT_EQ(readMacroFile(path, again), "");
        EXPECT_EQ(again.name, profile.name);
        EXPECT_EQ(again.settingsLine, profile.settingsLine);
        EXPECT_TRUE(again.events == profile.events);
    }
}

TEST_F(MacroFile, IsWrittenWithTheDefaultsForAProfileWithoutSettings) {
    ASSERT_EQ(writeMacroFile(path, {"name", "", {}}), "");
    Profile again;
    ASSERT_EQ(readMacroFile(path, again), "");
    EXPECT_EQ(again.settingsLine, defaultSettingsLine);
}

TEST_F(MacroFile, CannotBeWrittenWithoutANameOfOneLine) {
    for (const auto* name : {"", "\n", "a\nb"}) {
        EXPECT_NE(writeMacroFile(path, {name, "", {}}), "");
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    EXPECT_NE(writeMacroFile(folder.file("missing/x"), {"name", "", {}}), "");
    EXPECT_EQ(writeMacroFile(path, {"a\r", "", {}}), "");
    EXPECT_EQ(read(test::readBytes(path)).name, "a\r");
}

class MacroSettings : public MacroFile {
  protected:
    // The profile line of the session's settings with one field, counted from 1, replaced.
    static std::string with(std::size_t number, const std::string& text) {
        return macroSettingsToProfileLine(replaced(session, number, text));
    }
    static std::string replaced(std::string line, std::size_t number, const std::string& text) {
        std::size_t start = 0;
        for (std::size_t i = 1; i < number; ++i)
            start = line.find(',', start) + 1;
        const auto end = std::min(line.find(',', start), line.size());
        return line.replace(start, end - start, text);
    }
    // The session's settings cut after `count` fields.
    static std::string cut(std::size_t count) {
        std::string line = session;
        for (std::size_t i = sessionFieldCount; i > count; --i)
            line.resize(line.rfind(','));
        return macroSettingsToProfileLine(line);
    }
};

TEST_F(MacroSettings, ReachAsFarAsTheirFields) {
    const std::string clicker = "11,12,13,14,15,16,17,18,19,20,21,";
    const std::string liveClicker = "1,2,3,4,1,1,0,7,1,-10,20,";
    const std::string liveSpam = "5,6,7,8,0,9,65,";
    EXPECT_EQ(macroSettingsToProfileLine(""), liveLine);
    EXPECT_EQ(cut(22), liveLine);
    EXPECT_EQ(cut(23), clicker + liveSpam + "65,0");
    EXPECT_EQ(cut(30), clicker + liveSpam + "65,0");
    EXPECT_EQ(cut(31), clicker + "31,32,33,34,35,36,37,37,0");
    EXPECT_EQ(cut(32), clicker + "31,32,33,34,35,36,37,37,0");
    EXPECT_EQ(cut(33), sessionAsProfile);
    EXPECT_EQ(cut(36), sessionAsProfile);
}

TEST_F(MacroSettings, TakeAGroupOnlyWhenAllOfItAreIntegers) {
    const std::string spam = "31,32,33,34,35,36,37,38|39,1";
    const std::string clicker = "11,12,13,14,15,16,17,18,19,20,21,";
    for (const std::size_t field : {1U, 4U, 11U})
        for (const auto* text : {"5ms", "", "x", "1.0", "2147483648", "5 ", "+ 5"})
            EXPECT_EQ(with(field, text), "1,2,3,4,1,1,0,7,1,-10,20," + spam) << field << text;
    for (const std::size_t field : {24U, 29U, 31U})
        for (const auto* text : {"5ms", "", "x", "1.0", "-2147483649", "5 "})
            EXPECT_EQ(with(field, text), clicker + "5,6,7,8,0,9,65,38|39,1") << field << text;
    // The standard conversion takes these, to their ends.
    for (const auto* text : {"+5", " 5", "\t5"}) {
        EXPECT_EQ(with(4, text), "11,12,13,"s + text + ",15,16,17,18,19,20,21," + spam);
        EXPECT_EQ(with(24, text), clicker + text + ",32,33,34,35,36,37,38|39,1");
    }
    // The options and hotkeys between the groups do not matter.
    for (const std::size_t field : {12U, 17U, 20U, 22U, 23U, 30U, 34U, 36U})
        EXPECT_EQ(with(field, "x"), sessionAsProfile) << field;
    EXPECT_EQ(with(1, "-2147483648").substr(0, 12), "-2147483648,");
}

TEST_F(MacroSettings, TakeTheTargetsAsTheyStand) {
    for (const auto* targets : {"", "x", "1|2|3|4", "a b"})
        EXPECT_EQ(with(32, targets),
                  "11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,"s + targets + ",1");
    for (const auto* chord : {"", "0", "01", "true"})
        EXPECT_EQ(with(33, chord), "11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,38|39,0");
}

TEST_F(MacroSettings, AreWrittenForEveryFormOfAProfilesLine) {
    const auto again = [](std::string_view line) {
        return macroSettingsToProfileLine(profileToSessionLine(line));
    };
    EXPECT_EQ(again(sessionAsProfile), sessionAsProfile);
    EXPECT_EQ(again(""), defaultSettingsLine);
    EXPECT_EQ(again("1,2"), liveLine);
    EXPECT_EQ(again("11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37"),
              "11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,37,0");
    EXPECT_EQ(again("11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,38|39"),
              "11,12,13,14,15,16,17,18,19,20,21,31,32,33,34,35,36,37,37,0");
}

}  // namespace
}  // namespace ravelin
