#include <gtest/gtest.h>

#include <cstdio>
#include <new>
#include <stdexcept>
#include <string>

#include "app/console_modes.h"

namespace ravelin {
namespace {

struct Printed {
    int exitCode = -1;
    std::string text;
};

Printed runSelfTest(bool passes) {
    Switches switches;
    switches.selfTestUpdate = "vectors";
    switches.validateMacro = "not looked at";
    std::FILE* out = std::tmpfile();
    Printed printed;
    printed.exitCode = runConsoleMode(
        switches,
        [&](const std::string& path, std::string& report) {
            report = "PASS 100% of " + path + "\n";
            return passes;
        },
        out);
    std::rewind(out);
    for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out))
        printed.text += static_cast<char>(c);
    std::fclose(out);
    return printed;
}

TEST(ConsoleSelfTest, RejectsWhatItCannotFinish) {
    Switches switches;
    switches.selfTestUpdate = "vectors";
    const auto outcome = [&](const UpdateSelfTest& selfTest) {
        std::FILE* out = std::tmpfile();
        const int exitCode = runConsoleMode(switches, selfTest, out);
        std::rewind(out);
        std::string text(100, ' ');
        text.resize(std::fread(text.data(), 1, text.size(), out));
        std::fclose(out);
        return std::to_string(exitCode) + ' ' + text;
    };
    EXPECT_EQ(outcome([](auto&, auto&) -> bool { throw std::bad_alloc(); }),
              "1 REJECT out of memory\n");
    EXPECT_EQ(outcome([](auto&, auto&) -> bool { throw std::runtime_error("broken"); }),
              "1 REJECT broken\n");
}

TEST(ConsoleSelfTest, PrintsTheReportAndThatAllPassed) {
    const Printed printed = runSelfTest(true);
    EXPECT_EQ(printed.exitCode, 0);
    EXPECT_EQ(printed.text, "PASS 100% of vectors\nSELFTEST-UPDATE: ALL PASS\n");
}

TEST(ConsoleSelfTest, PrintsTheReportAndThatSomethingFailed) {
    const Printed printed = runSelfTest(false);
    EXPECT_EQ(printed.exitCode, 1);
    EXPECT_EQ(printed.text, "PASS 100% of vectors\nSELFTEST-UPDATE: FAILURES ABOVE\n");
}

}  // namespace
}  // namespace ravelin
