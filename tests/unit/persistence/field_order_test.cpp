// Every field stands in its column and under its name: each is changed alone, by its column, and
// read by its name and its column, so that no two can be exchanged without notice.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <numeric>

#include "data_folder_fixture.h"
#include "input/status.h"
#include "persistence/app_settings.h"
#include "persistence/macro_settings.h"
#include "persistence/session_settings.h"
#include "support/text.h"
#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

using Json = nlohmann::json;
using Fields = std::vector<std::string>;

Fields fieldsOf(std::string_view line) {
    return splitList(line, ',');
}

std::string lineOf(const Fields& fields) {
    std::string line;
    for (const auto& field : fields)
        line += (&field == fields.data() ? "" : ",") + field;
    return line;
}

// What the program tells of itself by name.
Json told() {
    Json all = Json::parse(getSettings());
    all.update(Json::parse(getTrackerStatus({})));
    all["first target"] = keySpamTargets.first.load();
    all["stopToolsWithMacro"] = engine.stopToolsWithMacro.load();
    return all;
}

// The names under which the two differ, with the new value.
Json differences(const Json& before, const Json& after) {
    Json changed = Json::object();
    for (const auto& [name, value] : after.items())
        if (before.value(name, Json()) != value) changed[name] = value;
    return changed;
}

struct Column {
    std::size_t inSession;  // counted from 1
    std::size_t inProfile;  // 0: not in the profile's line
    std::string text;
    Json named;  // what changes by name

    bool inMacro() const { return inProfile != 0; }
};

void PrintTo(const Column& column, std::ostream* out) {
    *out << "field " << column.inSession << ": " << column.named;
}

Json number(const char* name, int value) {
    return {{name, value}};
}

const Column columns[] = {
    {1, 1, "61", number("sh", 61)},
    {2, 2, "62", number("sm", 62)},
    {3, 3, "63", number("ss", 63)},
    {4, 4, "64", number("sms", 64)},
    {5, 5, "65", number("sbtn", 65)},
    {6, 6, "66", number("stype", 66)},
    {7, 7, "67", number("rptMode", 67)},
    {8, 8, "68", number("rptTimes", 68)},
    {9, 9, "69", number("locMode", 69)},
    {10, 10, "70", number("fixedX", 70)},
    {11, 11, "71", number("fixedY", 71)},
    {12, 0, "0", {{"tmv", false}}},
    {13, 0, "0", {{"tclk", false}}},
    {14, 0, "0", {{"tscr", false}}},
    {15, 0, "0", {{"tkey", false}}},
    {16, 0, "1", {{"trel", true}}},
    {17, 0, "2.5", {{"tspd", 2.5}}},
    {18, 0, "1", {{"tloop", true}}},
    {19, 0, "79", number("tloopMs", 79)},
    {20, 0, "80", {{"hkRec", "Key[80]"}}},
    {21, 0, "81", {{"hkPlay", "Key[81]"}}},
    {23, 0, "83", {{"hkAuto", "Key[83]"}}},
    {24, 12, "84", number("ksh", 84)},
    {25, 13, "85", number("ksm", 85)},
    {26, 14, "86", number("kss", 86)},
    {27, 15, "87", number("ksms", 87)},
    {28, 16, "88", number("ksRptMode", 88)},
    {29, 17, "89", number("ksRptTimes", 89)},
    {30, 0, "90", {{"hkKeySpam", "Key[90]"}}},
    {31, 18, "91", number("first target", 91)},
    {32, 19, "92|93", {{"keySpamTargets", {"Key[92]", "Key[93]"}}}},
    {33, 20, "1", {{"keySpamChord", true}}},
    {34, 0, "1", {{"holdAuto", true}}},
    {35, 0, "1", {{"holdKeySpam", true}}},
    {36, 0, "96", {{"hkUnlock", "Key[96]"}}},
};

class FieldOrder : public EngineTest, public testing::WithParamInterface<Column> {
  protected:
    // The line with the field, counted from 1, changed alone.
    static std::string changedIn(const std::string& line, std::size_t number) {
        auto fields = fieldsOf(line);
        fields.at(number - 1) = GetParam().text;
        return lineOf(fields);
    }

    const Json before = told();
    const std::string session = sessionSettingsLine();
    const std::string profile = captureToolSettings();
};

TEST_P(FieldOrder, HoldsInTheSessionsLine) {
    const auto line = changedIn(session, GetParam().inSession);
    applySessionSettings(line);
    EXPECT_EQ(differences(before, told()), GetParam().named);
    EXPECT_EQ(sessionSettingsLine(), line);
}

TEST_P(FieldOrder, HoldsInTheProfilesLine) {
    if (!GetParam().inMacro()) {
        applySessionSettings(changedIn(session, GetParam().inSession));
        EXPECT_EQ(captureToolSettings(), profile) << "no field of the profile's";
        return;
    }
    const auto line = changedIn(profile, GetParam().inProfile);
    applyToolSettings(line);
    EXPECT_EQ(differences(before, told()), GetParam().named);
    EXPECT_EQ(captureToolSettings(), line);
}

TEST_P(FieldOrder, HoldsBetweenTheSessionsLineOfAMacroAndTheProfiles) {
    const auto sessionLine = changedIn(session, GetParam().inSession);
    const auto profileLine =
        GetParam().inMacro() ? changedIn(profile, GetParam().inProfile) : profile;
    EXPECT_EQ(macroSettingsToProfileLine(sessionLine), profileLine);
    EXPECT_EQ(profileToSessionLine(profileLine), GetParam().inMacro() ? sessionLine : session);
}

INSTANTIATE_TEST_SUITE_P(EveryColumn, FieldOrder, testing::ValuesIn(columns), [](const auto& test) {
    std::string name = test.param.named.items().begin().key();
    std::erase(name, ' ');
    return name;
});

TEST(FieldOrderTable, HasEveryColumnOnce) {
    std::vector<std::size_t> inSession;
    std::vector<std::size_t> inProfile;
    for (const Column& column : columns) {
        inSession.push_back(column.inSession);
        if (column.inMacro()) inProfile.push_back(column.inProfile);
    }
    inSession.push_back(22);  // holds its place and nothing else
    std::vector<std::size_t> all(sessionFieldCount);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_THAT(inSession, testing::UnorderedElementsAreArray(all));
    all.resize(20);
    EXPECT_THAT(inProfile, testing::UnorderedElementsAreArray(all));
}

// What the page and the panels send.
struct Piece {
    void (*update)(std::string_view);
    std::string defaults;
    std::vector<const char*> names;
};

TEST_F(EngineTest, EachPieceOfAnUpdateIsStoredUnderItsName) {
    const Piece updates[] = {
        {updateSpammer,
         "0,0,0,5,0,0,1,10,0",
         {"sh", "sm", "ss", "sms", "sbtn", "stype", "rptMode", "rptTimes", "locMode"}},
        {updateKeySpam, "0,0,0,5,1,10", {"ksh", "ksm", "kss", "ksms", "ksRptMode", "ksRptTimes"}},
    };
    for (const auto& [update, defaults, names] : updates)
        for (std::size_t i = 0; i < names.size(); ++i) {
            resetEngine();
            const Json before = told();
            auto pieces = fieldsOf(defaults);
            pieces[i] = std::to_string(60 + i);
            update(lineOf(pieces));
            EXPECT_EQ(differences(before, told()), number(names[i], static_cast<int>(60 + i)));
        }
}

// The application settings: by key in the file, by name for the page, by variable for the rest.
struct Line {
    std::size_t number;  // counted from 1
    std::string key;
    std::string text;
    Json named;
};

void PrintTo(const Line& line, std::ostream* out) {
    *out << "line " << line.number << ": " << line.named;
}

Json toldOfApplication() {
    Json all = Json::parse(getAppSettings());
    all["stopToolsWithMacro"] = engine.stopToolsWithMacro.load();
    all["windowX"] = appSettings.windowX;
    all["windowY"] = appSettings.windowY;
    all["windowWidth"] = appSettings.windowWidth;
    all["windowHeight"] = appSettings.windowHeight;
    all["windowMaximized"] = appSettings.windowMaximized;
    return all;
}

const Line lines[] = {
    {1, "alwaysOnTop", "1", {{"alwaysOnTop", true}}},
    {2, "launchOnStartup", "1", {{"launchOnStartup", true}}},
    {3, "startMinimized", "1", {{"startMinimized", true}}},
    {4, "hotkeysEnabled", "0", {{"hotkeysEnabled", false}}},
    {5, "hotkeyLockOn", "0", {{"hotkeyLock", false}}},
    {6, "stopToolsWithMacro", "0", {{"stopToolsWithMacro", false}}},
    {7, "disableAnimations", "1", {{"disableAnimations", true}}},
    {8, "showWarnings", "0", {{"showWarnings", false}}},
    {9, "seenWarnings", "x", {{"seenWarnings", {"x"}}}},
    {10, "minimizedPanels", "panel-ui", {{"minimizedPanels", {"panel-ui"}}}},
    {11, "panelOrder", "panel-ui", {{"panelOrder", {"panel-ui"}}}},
    {12, "windowX", "72", number("windowX", 72)},
    {13, "windowY", "73", number("windowY", 73)},
    {14, "windowWidth", "74", number("windowWidth", 74)},
    {15, "windowHeight", "75", number("windowHeight", 75)},
    {16, "windowMaximized", "1", {{"windowMaximized", true}}},
};

class AppSettingsOrder : public DataFolderFixture, public testing::WithParamInterface<Line> {
  protected:
    Fields savedLines() const {
        saveAppSettings();
        std::string text = readBytes(settingsFile());
        std::erase(text, '\r');
        return splitList(text, '\n');
    }
};

TEST_P(AppSettingsOrder, HoldsInTheFile) {
    const auto& [number, key, text, named] = GetParam();
    const Json before = toldOfApplication();
    auto expected = savedLines();
    ASSERT_EQ(expected.size(), std::size(lines));
    expected[number - 1] = key + '=' + text;
    localAppData.write("Ravelin/appsettings.txt", key + '=' + text + '\n');
    loadAppSettings();
    EXPECT_EQ(differences(before, toldOfApplication()), named);
    EXPECT_EQ(savedLines(), expected);
}

TEST_P(AppSettingsOrder, HoldsInWhatThePageSets) {
    const auto& [number, key, text, named] = GetParam();
    if (text.size() != 1 || key == "seenWarnings" || key == "windowMaximized") return;
    const Json before = toldOfApplication();
    setAppSetting("[\"" + (key == "hotkeyLockOn" ? "hotkeyLock" : key) + "\",\"" + text + "\"]");
    EXPECT_EQ(differences(before, toldOfApplication()), named);
    EXPECT_EQ(savedLines()[number - 1], key + '=' + text);
}

INSTANTIATE_TEST_SUITE_P(EveryLine, AppSettingsOrder, testing::ValuesIn(lines),
                         [](const auto& test) { return test.param.key; });

}  // namespace
}  // namespace ravelin::test
