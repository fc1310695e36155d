#include <gmock/gmock.h>

#include "data_folder_fixture.h"
#include "input/engine_state.h"
#include "persistence/app_settings.h"

namespace ravelin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AppSettingsFile : public test::DataFolderFixture {
  protected:
    void load(const std::string& text) {
        std::filesystem::create_directories(localAppData.file("Ravelin"));
        test::writeBytes(settingsFile(), text);
        loadAppSettings();
    }
};

constexpr char defaultFile[] =
    "alwaysOnTop=0\r\nlaunchOnStartup=0\r\nstartMinimized=0\r\nhotkeysEnabled=1\r\n"
    "hotkeyLockOn=1\r\nstopToolsWithMacro=1\r\ndisableAnimations=0\r\nshowWarnings=1\r\n"
    "seenWarnings=\r\nminimizedPanels=\r\npanelOrder=\r\nwindowX=0\r\nwindowY=0\r\n"
    "windowWidth=420\r\nwindowHeight=560\r\nwindowMaximized=0\r\n";

TEST_F(AppSettingsFile, HoldsEverySettingInAFixedOrder) {
    saveAppSettings();
    EXPECT_EQ(test::readBytes(settingsFile()), defaultFile);
}

TEST_F(AppSettingsFile, HoldsChangedSettings) {
    appSettings.alwaysOnTop = appSettings.launchOnStartup = appSettings.startMinimized = true;
    appSettings.disableAnimations = appSettings.windowMaximized = true;
    appSettings.showWarnings = false;
    hotkeys.enabled = hotkeys.lockOn = engine.stopToolsWithMacro = false;
    appSettings.seenWarnings = {"z-first", "a-first", "Zebra", "\xC3\xA4"};
    appSettings.minimizedPanels = {"panel-ui", "panel-keyspam"};
    appSettings.panelOrder = {"panel-ui", "panel-keyspam"};
    appSettings.windowX = -1920;
    appSettings.windowY = -2147483648;
    appSettings.windowWidth = 2147483647;
    appSettings.windowHeight = 1080;
    saveAppSettings();
    EXPECT_EQ(test::readBytes(settingsFile()),
              "alwaysOnTop=1\r\nlaunchOnStartup=1\r\nstartMinimized=1\r\nhotkeysEnabled=0\r\n"
              "hotkeyLockOn=0\r\nstopToolsWithMacro=0\r\ndisableAnimations=1\r\nshowWarnings=0\r\n"
              "seenWarnings=Zebra,a-first,z-first,\xC3\xA4\r\n"
              "minimizedPanels=panel-keyspam,panel-ui\r\npanelOrder=panel-ui,panel-keyspam\r\n"
              "windowX=-1920\r\nwindowY=-2147483648\r\nwindowWidth=2147483647\r\n"
              "windowHeight=1080\r\nwindowMaximized=1\r\n");
    const auto before = test::readBytes(settingsFile());
    test::resetLiveState();
    loadAppSettings();
    saveAppSettings();
    EXPECT_EQ(test::readBytes(settingsFile()), before);
}

TEST_F(AppSettingsFile, ReplacesALongerOne) {
    appSettings.seenWarnings = {std::string(5000, 'w')};
    saveAppSettings();
    appSettings.seenWarnings.clear();
    saveAppSettings();
    EXPECT_EQ(test::readBytes(settingsFile()), defaultFile);
}

TEST_F(AppSettingsFile, MayBeMissing) {
    const auto before = getAppSettings();
    loadAppSettings();
    EXPECT_EQ(getAppSettings(), before);
    EXPECT_FALSE(fileWritten());
    EXPECT_FALSE(appSettings.positionSaved);
}

TEST_F(AppSettingsFile, MayBeImpossibleToWrite) {
    std::filesystem::create_directories(settingsFile());  // a folder in its place
    appSettings.windowX = 7;
    saveAppSettings();
    loadAppSettings();
    EXPECT_EQ(appSettings.windowX, 7);
}

TEST_F(AppSettingsFile, MayHaveNoFolderToLieIn) {
    test::writeBytes(localAppData.file("Ravelin"), "a file in the folder's place");
    saveAppSettings();
    loadAppSettings();
    EXPECT_FALSE(appSettings.positionSaved);
}

TEST_F(AppSettingsFile, IsNotWrittenByLoading) {
    load("alwaysOnTop=1\n");
    EXPECT_EQ(test::readBytes(settingsFile()), "alwaysOnTop=1\n");
}

TEST_F(AppSettingsFile, ReadsLinesWithEitherEnd) {
    load("alwaysOnTop=1\r\nstartMinimized=1\nwindowX=5\r\nlaunchOnStartup=1");
    EXPECT_TRUE(appSettings.alwaysOnTop);
    EXPECT_TRUE(appSettings.startMinimized);
    EXPECT_TRUE(appSettings.launchOnStartup);
    EXPECT_EQ(appSettings.windowX, 5);
}

TEST_F(AppSettingsFile, KeepsALoneCarriageReturnAtItsVeryEnd) {
    load("startMinimized=1\r\nalwaysOnTop=1\r");
    EXPECT_TRUE(appSettings.startMinimized);
    EXPECT_FALSE(appSettings.alwaysOnTop);
    load("seenWarnings=a\r");
    EXPECT_THAT(appSettings.seenWarnings, ElementsAre("a\r"));
}

TEST_F(AppSettingsFile, ReadsAFlagAsTrueOnlyForExactlyOne) {
    for (const auto* value : {"true", "yes", " 1", "1 ", "", "11", "1=", "-1", "1\r"}) {
        appSettings.alwaysOnTop = true;
        hotkeys.enabled = true;
        load(std::string("alwaysOnTop=") + value + "\r\nhotkeysEnabled=" + value + "\r\n");
        EXPECT_FALSE(appSettings.alwaysOnTop) << value;
        EXPECT_FALSE(hotkeys.enabled.load()) << value;
    }
    load("alwaysOnTop=1\nhotkeysEnabled=1\n");
    EXPECT_TRUE(appSettings.alwaysOnTop);
    EXPECT_TRUE(hotkeys.enabled.load());
}

TEST_F(AppSettingsFile, ReadsTheFlagsOfTheEngine) {
    load("hotkeysEnabled=0\nhotkeyLockOn=0\nstopToolsWithMacro=0\n");
    EXPECT_FALSE(hotkeys.enabled.load());
    EXPECT_FALSE(hotkeys.lockOn.load());
    EXPECT_FALSE(engine.stopToolsWithMacro.load());
    EXPECT_TRUE(hotkeys.unlocked.load());
}

TEST_F(AppSettingsFile, SkipsLinesThatMakeNoSense) {
    load(
        "\n\nno equals sign\n=1\nunknown=1\nAlwaysOnTop=1\n alwaysOnTop=1\nalwaysOnTop =1\n"
        "hotkeyLock=0\nstartMinimized=1\n");
    EXPECT_FALSE(appSettings.alwaysOnTop);
    EXPECT_TRUE(hotkeys.lockOn.load());
    EXPECT_TRUE(appSettings.startMinimized);
}

TEST_F(AppSettingsFile, LetsTheLastOfTwoLinesWin) {
    load("alwaysOnTop=1\nwindowX=5\nalwaysOnTop=0\nwindowX=6\nseenWarnings=a\nseenWarnings=b\n");
    EXPECT_FALSE(appSettings.alwaysOnTop);
    EXPECT_EQ(appSettings.windowX, 6);
    EXPECT_THAT(appSettings.seenWarnings, ElementsAre("b"));
}

TEST_F(AppSettingsFile, ReadsWarningsWithEqualsSigns) {
    load("seenWarnings=b,,a=1,b,\n");
    EXPECT_THAT(appSettings.seenWarnings, ElementsAre("a=1", "b"));
    load("seenWarnings=\n");
    EXPECT_THAT(appSettings.seenWarnings, IsEmpty());
}

TEST_F(AppSettingsFile, DropsUnknownMinimizedPanelsOneByOne) {
    appSettings.minimizedPanels = {"panel-tracker"};
    load("minimizedPanels=panel-ui,bogus\n");
    EXPECT_THAT(appSettings.minimizedPanels, ElementsAre("panel-ui"));
}

TEST_F(AppSettingsFile, KeepsThePanelOrderWhenTheNewOneIsBad) {
    load("panelOrder=panel-tracker,,panel-ui\n");
    EXPECT_THAT(appSettings.panelOrder, ElementsAre("panel-tracker", "panel-ui"));
    load("panelOrder=panel-ui,panel-ui\n");
    EXPECT_THAT(appSettings.panelOrder, ElementsAre("panel-tracker", "panel-ui"));
    load("panelOrder=\n");
    EXPECT_THAT(appSettings.panelOrder, IsEmpty());
}

TEST_F(AppSettingsFile, SkipsAPlacementThatIsNoNumber) {
    load(
        "windowX=abc\nwindowY=\nwindowWidth=99999999999\nwindowHeight=-2147483649\n"
        "windowMaximized=1\n");
    EXPECT_EQ(appSettings.windowX, 0);
    EXPECT_FALSE(appSettings.positionSaved);
    EXPECT_EQ(appSettings.windowY, 0);
    EXPECT_EQ(appSettings.windowWidth, 420);
    EXPECT_EQ(appSettings.windowHeight, 560);
    EXPECT_TRUE(appSettings.windowMaximized);
}

TEST_F(AppSettingsFile, ReadsANumberUpToWhatFollowsIt) {
    load("windowX=120px\nwindowY= \t-33\nwindowWidth=+44 55\nwindowHeight=0x10\n");
    EXPECT_EQ(appSettings.windowX, 120);
    EXPECT_EQ(appSettings.windowY, -33);
    EXPECT_EQ(appSettings.windowWidth, 44);
    EXPECT_EQ(appSettings.windowHeight, 0);
}

TEST_F(AppSettingsFile, MarksThePositionAsSavedForWindowXAlone) {
    load("windowY=5\nwindowWidth=6\nwindowHeight=7\nwindowMaximized=1\n");
    EXPECT_FALSE(appSettings.positionSaved);
    load("windowX=0\n");
    EXPECT_TRUE(appSettings.positionSaved);
}

// What survives of a file that was cut off while it was rewritten, or that never was one.
TEST_F(AppSettingsFile, SurvivesDamage) {
    const struct {
        std::string text;
        bool onTop;
        std::int32_t x;
    } cases[] = {
        {"", false, 0},
        {"alwaysOnTop=1\r\nwindowX=12", true, 12},
        {"alwaysOnTop=1\r\nwindow", true, 0},
        {"alwaysOnTop=1\r", false, 0},
        {std::string("alwaysOnTop=1\0\nwindowX=5\0\n", 26), false, 5},
        {std::string(100000, '\0') + "\nalwaysOnTop=1\n", true, 0},
        {std::string(3000000, 'x') + "=1\nalwaysOnTop=1\n", true, 0},
        {"seenWarnings=" + std::string(3000000, ',') + "\nwindowX=9\n", false, 9},
        {"panelOrder=" + std::string(3000000, ',') + "\nwindowX=9\n", false, 9},
        {std::string(300000, '\n') + "windowX=4\n", false, 4},
        {"\x1A\nalwaysOnTop=1\n\xFF\xFE=\x80\nwindowX=3\n", true, 3},
    };
    for (const auto& c : cases) {
        test::resetLiveState();
        load(c.text);
        EXPECT_EQ(appSettings.alwaysOnTop, c.onTop) << c.text.substr(0, 40);
        EXPECT_EQ(appSettings.windowX, c.x) << c.text.substr(0, 40);
    }
}

}  // namespace
}  // namespace ravelin
