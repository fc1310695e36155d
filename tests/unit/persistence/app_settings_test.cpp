#include "persistence/app_settings.h"

#include <gmock/gmock.h>

#include "data_folder_fixture.h"
#include "input/engine_state.h"

namespace ravelin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AppSettingsMethods : public test::DataFolderFixture {};

TEST(PanelIds, AreExactlyFiveAndCaseSensitive) {
    for (const auto* id :
         {"panel-ui", "panel-profile", "panel-spammer", "panel-keyspam", "panel-tracker"})
        EXPECT_TRUE(isPanelId(id)) << id;
    for (const auto* id : {"", "panel-", "Panel-ui", "panel-ui ", " panel-ui", "panel-uix", "ui"})
        EXPECT_FALSE(isPanelId(id)) << id;
}

TEST(PanelOrder, KeepsTheGivenOrderAndSkipsEmptyItems) {
    EXPECT_THAT(*parsePanelOrder("panel-tracker,,panel-ui,"),
                ElementsAre("panel-tracker", "panel-ui"));
    EXPECT_THAT(*parsePanelOrder(""), IsEmpty());
    EXPECT_THAT(*parsePanelOrder(",,"), IsEmpty());
    EXPECT_THAT(
        *parsePanelOrder("panel-tracker,panel-keyspam,panel-spammer,panel-profile,panel-ui"),
        ElementsAre("panel-tracker", "panel-keyspam", "panel-spammer", "panel-profile",
                    "panel-ui"));
}

TEST(PanelOrder, IsRejectedWholeForAnUnknownOrRepeatedId) {
    EXPECT_FALSE(parsePanelOrder("panel-ui,panel-ui"));
    EXPECT_FALSE(parsePanelOrder("panel-ui,panel-bogus"));
    EXPECT_FALSE(parsePanelOrder("panel-ui, panel-tracker"));
}

TEST_F(AppSettingsMethods, ReportTheDefaults) {
    EXPECT_EQ(getAppSettings(),
              R"({"alwaysOnTop":false,"launchOnStartup":false,"startMinimized":false,)"
              R"("hotkeysEnabled":true,"hotkeyLock":true,"disableAnimations":false,)"
              R"("showWarnings":true,"seenWarnings":[],"minimizedPanels":[],"panelOrder":[]})");
}

TEST_F(AppSettingsMethods, ReportEveryChange) {
    setAppSetting(R"(["alwaysOnTop","1"])");
    setAppSetting(R"(["launchOnStartup","1"])");
    setAppSetting(R"(["startMinimized","1"])");
    setAppSetting(R"(["hotkeysEnabled","0"])");
    setAppSetting(R"(["hotkeyLock","0"])");
    setAppSetting(R"(["disableAnimations","1"])");
    setAppSetting(R"(["showWarnings","0"])");
    setAppSetting(R"(["min:panel-ui","1"])");
    setAppSetting(R"(["min:panel-keyspam",1])");
    markWarningSeen(R"(["z-first"])");
    markWarningSeen(R"(["a-first"])");
    setPanelOrder(R"(["panel-tracker","panel-ui"])");
    EXPECT_EQ(getAppSettings(),
              R"({"alwaysOnTop":true,"launchOnStartup":true,"startMinimized":true,)"
              R"("hotkeysEnabled":false,"hotkeyLock":false,"disableAnimations":true,)"
              R"("showWarnings":false,"seenWarnings":["a-first","z-first"],)"
              R"("minimizedPanels":["panel-keyspam","panel-ui"],)"
              R"("panelOrder":["panel-tracker","panel-ui"]})");
}

TEST_F(AppSettingsMethods, SetAFlagOnlyForExactlyOne) {
    for (const auto* value : {"true", "yes", "01", " 1", "1 ", "2", "on"}) {
        appSettings.startMinimized = true;
        setAppSetting(std::string("[\"startMinimized\",\"") + value + "\"]");
        EXPECT_FALSE(appSettings.startMinimized) << value;
    }
}

TEST_F(AppSettingsMethods, StoreTheEnginesFlagsWhereTheEngineReadsThem) {
    setAppSetting(R"(["hotkeysEnabled","0"])");
    setAppSetting(R"(["stopToolsWithMacro","0"])");
    setAppSetting(R"(["hotkeyLock","0"])");
    EXPECT_FALSE(hotkeys.enabled.load());
    EXPECT_FALSE(engine.stopToolsWithMacro.load());
    EXPECT_FALSE(hotkeys.lockOn.load());
    setAppSetting(R"(["hotkeysEnabled","1"])");
    setAppSetting(R"(["stopToolsWithMacro","1"])");
    setAppSetting(R"(["hotkeyLock","1"])");
    EXPECT_TRUE(hotkeys.enabled.load());
    EXPECT_TRUE(engine.stopToolsWithMacro.load());
    EXPECT_TRUE(hotkeys.lockOn.load());
}

TEST_F(AppSettingsMethods, UnlockTheHotkeysWhicheverWayTheLockIsSwitched) {
    for (const auto* value : {"0", "1"}) {
        hotkeys.unlocked.exchange(false);
        setAppSetting(std::string("[\"hotkeyLock\",\"") + value + "\"]");
        EXPECT_TRUE(hotkeys.unlocked.load()) << value;
    }
}

TEST_F(AppSettingsMethods, KnowTheLockByItsPageNameOnly) {
    setAppSetting(R"(["hotkeyLockOn","0"])");
    EXPECT_TRUE(hotkeys.lockOn.load());
}

TEST_F(AppSettingsMethods, CannotSetListsOrThePlacementAsASingleSetting) {
    const auto before = getAppSettings();
    for (const auto* key : {"seenWarnings", "minimizedPanels", "panelOrder", "windowX",
                            "windowWidth", "windowMaximized", "AlwaysOnTop", ""})
        setAppSetting(std::string("[\"") + key + "\",\"1\"]");
    EXPECT_EQ(getAppSettings(), before);
    EXPECT_EQ(appSettings.windowX, 0);
    EXPECT_EQ(appSettings.windowWidth, 420);
    EXPECT_FALSE(appSettings.windowMaximized);
}

TEST_F(AppSettingsMethods, CarryOutTheEffectsOfASetting) {
    std::vector<std::pair<std::string, bool>> effects;
    appSettingEffects.alwaysOnTop = [&](bool on) { effects.emplace_back("top", on); };
    appSettingEffects.launchOnStartup = [&](bool on) { effects.emplace_back("log-on", on); };
    setAppSetting(R"(["alwaysOnTop","1"])");
    setAppSetting(R"(["alwaysOnTop","0"])");
    setAppSetting(R"(["launchOnStartup","1"])");
    setAppSetting(R"(["launchOnStartup","x"])");
    setAppSetting(R"(["startMinimized","1"])");
    EXPECT_THAT(effects, ElementsAre(std::pair("top", true), std::pair("top", false),
                                     std::pair("log-on", true), std::pair("log-on", false)));
}

TEST_F(AppSettingsMethods, AddAndRemoveAMinimizedPanel) {
    setAppSetting(R"(["min:panel-keyspam","1"])");
    setAppSetting(R"(["min:panel-keyspam","1"])");
    EXPECT_THAT(appSettings.minimizedPanels, ElementsAre("panel-keyspam"));
    setAppSetting(R"(["min:panel-ui","0"])");
    EXPECT_THAT(appSettings.minimizedPanels, ElementsAre("panel-keyspam"));
    setAppSetting(R"(["min:panel-keyspam","0"])");
    EXPECT_THAT(appSettings.minimizedPanels, IsEmpty());
}

TEST_F(AppSettingsMethods, SaveEvenWhenTheKeyChangesNothing) {
    for (const auto* args : {R"(["min:nothing","1"])", R"(["min:","1"])", R"(["unknown","1"])"}) {
        removeFile();
        setAppSetting(args);
        EXPECT_TRUE(fileWritten()) << args;
        EXPECT_THAT(appSettings.minimizedPanels, IsEmpty());
    }
}

TEST_F(AppSettingsMethods, IgnoreAnythingButTwoItems) {
    for (const auto* args :
         {R"(["alwaysOnTop"])", R"([])", "", R"(["alwaysOnTop","1","1"])", R"(["alwaysOnTop",])"}) {
        setAppSetting(args);
        EXPECT_FALSE(fileWritten()) << args;
        EXPECT_FALSE(appSettings.alwaysOnTop) << args;
    }
}

TEST_F(AppSettingsMethods, TakeTheWholeArgumentAsOneWarningId) {
    markWarningSeen(R"(["A","B"])");
    EXPECT_THAT(appSettings.seenWarnings, ElementsAre("A,B"));
}

TEST_F(AppSettingsMethods, SaveAWarningOnlyWhenItIsNew) {
    markWarningSeen(R"(["copy-paste-send"])");
    EXPECT_TRUE(fileWritten());
    removeFile();
    markWarningSeen(R"(["copy-paste-send"])");
    EXPECT_FALSE(fileWritten());
    for (const auto* nothing : {"", "[]", R"([""])"})
        markWarningSeen(nothing);
    EXPECT_FALSE(fileWritten());
    EXPECT_THAT(appSettings.seenWarnings, ElementsAre("copy-paste-send"));
}

TEST_F(AppSettingsMethods, ReplaceThePanelOrderWhole) {
    setPanelOrder(R"(["panel-tracker","panel-ui"])");
    setPanelOrder(R"(["panel-profile"])");
    EXPECT_THAT(appSettings.panelOrder, ElementsAre("panel-profile"));
    removeFile();
    setPanelOrder(R"(["panel-ui","panel-ui"])");
    setPanelOrder(R"(["panel-ui","nothing"])");
    EXPECT_THAT(appSettings.panelOrder, ElementsAre("panel-profile"));
    EXPECT_FALSE(fileWritten());
    setPanelOrder("[]");
    EXPECT_THAT(appSettings.panelOrder, IsEmpty());
    EXPECT_TRUE(fileWritten());
}

}  // namespace
}  // namespace ravelin
