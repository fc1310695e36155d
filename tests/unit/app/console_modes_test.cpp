// What each console mode prints and exits with.
#include "app/console_modes.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <new>
#include <stdexcept>
#include <string>

#include "tests/support/temp_folder.h"
#include "tests/unit/themes/sample_theme.h"

namespace ravelin {
namespace {

struct Printed {
    int exitCode = -1;
    std::string text;
    bool operator==(const Printed&) const = default;
};

void PrintTo(const Printed& printed, std::ostream* out) {
    *out << printed.exitCode << " after " << printed.text;
}

Printed run(const Switches& switches, const UpdateSelfTest& selfTest = {}) {
    std::FILE* out = std::tmpfile();
    Printed printed;
    printed.exitCode = runConsoleMode(switches, selfTest, out);
    std::rewind(out);
    for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out))
        printed.text += static_cast<char>(c);
    std::fclose(out);
    return printed;
}

Printed runSelfTest(bool passes) {
    Switches switches;
    switches.selfTestUpdate = "vectors";
    switches.validateMacro = "not looked at";
    return run(switches, [&](const std::string& path, std::string& report) {
        report = "PASS 100% of " + path + "\n";
        return passes;
    });
}

TEST(ConsoleSelfTest, RejectsWhatItCannotFinish) {
    Switches switches;
    switches.selfTestUpdate = "vectors";
    EXPECT_EQ(run(switches, [](auto&, auto&) -> bool { throw std::bad_alloc(); }),
              (Printed{1, "REJECT out of memory\n"}));
    EXPECT_EQ(run(switches, [](auto&, auto&) -> bool { throw std::runtime_error("broken"); }),
              (Printed{1, "REJECT broken\n"}));
}

TEST(ConsoleSelfTest, PrintsTheReportAndThatAllPassed) {
    EXPECT_EQ(runSelfTest(true), (Printed{0, "PASS 100% of vectors\nSELFTEST-UPDATE: ALL PASS\n"}));
}

TEST(ConsoleSelfTest, PrintsTheReportAndThatSomethingFailed) {
    EXPECT_EQ(runSelfTest(false),
              (Printed{1, "PASS 100% of vectors\nSELFTEST-UPDATE: FAILURES ABOVE\n"}));
}

class ConsoleCheck : public testing::Test {
  protected:
    Printed theme(const std::string& json) {
        folder_.write("theme.json", json);
        Switches switches;
        switches.validateTheme = folder_.file("theme.json");
        return run(switches);
    }
    Printed macro(std::optional<std::string> Switches::*mode, const std::string& text) {
        folder_.write("macro", text);
        Switches switches;
        switches.*mode = folder_.file("macro");
        return run(switches);
    }
    std::string missing() const { return folder_.file("missing"); }

  private:
    test::TempFolder folder_;
};

TEST_F(ConsoleCheck, TellsAThemesKindItsPiecesAndItsFont) {
    using namespace samples;
    const std::string button = jsonString(base64(png(192, 64)));
    const std::string font = jsonString(base64(fontOfBytes(1024)));
    const Object pieces{{{"button", button}, {"button.on", button}}};
    EXPECT_EQ(theme(coloursOnly().json()), (Printed{0, "OK colours\n"}));
    EXPECT_EQ(theme(withPieces(pieces)), (Printed{0, "OK skin 2 pieces\n"}));
    EXPECT_EQ(theme(withSkin(skinOf(pieces).add("font", font))),
              (Printed{0, "OK skin 2 pieces +font\n"}));
    EXPECT_EQ(theme(withFont(font)), (Printed{0, "OK skin 0 pieces +font\n"}));
    EXPECT_EQ(theme("{}"), (Printed{1, "REJECT invalid or missing name\n"}));
    Switches switches;
    switches.validateTheme = missing();
    EXPECT_EQ(run(switches), (Printed{1, "REJECT could not open file\n"}));
}

TEST_F(ConsoleCheck, CountsAMacrosEvents) {
    EXPECT_EQ(macro(&Switches::validateMacro, "Name\n3,0.5,0,0,0,65,1,0\nnoise\n"),
              (Printed{0, "OK 1 events\n"}));
    EXPECT_EQ(macro(&Switches::validateMacro, "Name\n"), (Printed{0, "OK 0 events\n"}));
    EXPECT_EQ(macro(&Switches::validateMacro, "\n"),
              (Printed{1, "REJECT That macro file is missing its profile name.\n"}));
}

TEST_F(ConsoleCheck, PrintsTheReportOfAScan) {
    EXPECT_EQ(macro(&Switches::scanMacro, "Name\n3,0.5,0,0,0,16,1,0\n3,1.5,0,0,0,46,1,0\n"),
              (Printed{0, R"({"level":"danger","matches":[{"id":"permanent-delete",)"
                          R"("severity":"DANGER","atSec":1.5}]})"
                          "\n"}));
    EXPECT_EQ(macro(&Switches::scanMacro, "Name\n"),
              (Printed{0, "{\"level\":\"none\",\"matches\":[]}\n"}));
    Switches switches;
    switches.scanMacro = missing();
    EXPECT_EQ(run(switches), (Printed{1, "REJECT Couldn't open that macro file.\n"}));
}

TEST_F(ConsoleCheck, MakesTheFirstOfSeveralOnly) {
    Switches switches;
    switches.scanMacro = switches.validateMacro = missing();
    switches.validateTheme = missing();
    EXPECT_EQ(run(switches).text, "REJECT could not open file\n");
}

}  // namespace
}  // namespace ravelin
