#include "app/command_line.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

TEST(CommandLine, NoArgumentsAskForNoConsoleMode) {
    EXPECT_EQ(consoleMode(gatherSwitches({})), ConsoleMode::none);
}

TEST(CommandLine, ASwitchGivenTwiceTakesItsLastValue) {
    const auto switches = gatherSwitches({"--scan-macro=a", "--scan-macro=b"});
    EXPECT_EQ(switches.scanMacro, "b");
}

TEST(CommandLine, ALaterEmptyValueReplacesAnEarlierOne) {
    EXPECT_EQ(gatherSwitches({"--scan-macro=a", "--scan-macro="}).scanMacro, "");
}

TEST(CommandLine, AnEmptyValueStillAsksForTheMode) {
    EXPECT_EQ(consoleMode(gatherSwitches({"--scan-macro="})), ConsoleMode::scanMacro);
}

TEST(CommandLine, EachSwitchAsksForItsMode) {
    EXPECT_EQ(consoleMode(gatherSwitches({"--selftest-update=v"})), ConsoleMode::selfTestUpdate);
    EXPECT_EQ(consoleMode(gatherSwitches({"--validate-theme=t"})), ConsoleMode::validateTheme);
    EXPECT_EQ(consoleMode(gatherSwitches({"--validate-macro=m"})), ConsoleMode::validateMacro);
    EXPECT_EQ(consoleMode(gatherSwitches({"--scan-macro=s"})), ConsoleMode::scanMacro);
}

TEST(CommandLine, AManifestSourceAloneStartsTheUserInterface) {
    const auto switches = gatherSwitches({"--update-manifest=C:\\m.json"});
    EXPECT_EQ(switches.updateManifest, "C:\\m.json");
    EXPECT_EQ(consoleMode(switches), ConsoleMode::none);
}

TEST(CommandLine, SelfTestGoesBeforeThemeBeforeMacroBeforeScan) {
    std::vector<std::string> arguments = {"--scan-macro=s", "--validate-macro=m",
                                          "--validate-theme=t", "--selftest-update=v"};
    EXPECT_EQ(consoleMode(gatherSwitches(arguments)), ConsoleMode::selfTestUpdate);
    arguments.pop_back();
    EXPECT_EQ(consoleMode(gatherSwitches(arguments)), ConsoleMode::validateTheme);
    arguments.pop_back();
    EXPECT_EQ(consoleMode(gatherSwitches(arguments)), ConsoleMode::validateMacro);
    arguments.pop_back();
    EXPECT_EQ(consoleMode(gatherSwitches(arguments)), ConsoleMode::scanMacro);
}

TEST(CommandLine, SwitchesAreMatchedAtTheBeginningAndByCase) {
    for (const char* argument : {" --scan-macro=x", "x--scan-macro=x", "--Scan-Macro=x",
                                 "--scan-macro", "/scan-macro=x", ""})
        EXPECT_EQ(consoleMode(gatherSwitches({argument})), ConsoleMode::none) << argument;
}

TEST(CommandLine, AValueKeepsEverythingBehindTheFirstEqualsSign) {
    EXPECT_EQ(gatherSwitches({"--validate-macro=a=b --scan-macro=c"}).validateMacro,
              "a=b --scan-macro=c");
}

TEST(CommandLine, NarrowingKeepsTheLowByteOfEachUnit) {
    EXPECT_EQ(narrowArgument(L"C:\\a.txt"), "C:\\a.txt");
    EXPECT_EQ(narrowArgument(L"\x0141\x00e4"), "\x41\xe4");
    EXPECT_EQ(narrowArgument(L""), "");
}

TEST(CommandLine, ChildIsRecognisedAnywhereInTheRawText) {
    for (const char* text :
         {"--child", "--child Panel|panel-ui", "x --child", "--children", "\"--child\""})
        EXPECT_TRUE(isChildRun(text)) << text;
    for (const char* text : {"", "--chil", "child", "--Child", "-child x"})
        EXPECT_FALSE(isChildRun(text)) << text;
}

}  // namespace
}  // namespace ravelin
