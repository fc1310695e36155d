#include "support/process_image.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/foreign_program.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::ForeignProgram;

TEST(ProcessImage, ThisProcessRunsThisExecutable) {
    EXPECT_TRUE(runsThisExecutable(GetCurrentProcessId()));
}

TEST(ProcessImage, SoDoesAnotherProcessStartedFromTheSameFile) {
    const ChildProgram child(test::ownPath());
    EXPECT_TRUE(runsThisExecutable(child.processId()));
}

TEST(ProcessImage, ACopyUnderAnotherNameIsAnotherExecutable) {
    const ForeignProgram foreign;
    const ChildProgram child(foreign.path());
    EXPECT_FALSE(runsThisExecutable(child.processId()));
}

TEST(ProcessImage, AProcessThatCannotBeOpenedRunsAnother) {
    EXPECT_FALSE(runsThisExecutable(0));
    EXPECT_FALSE(runsThisExecutable(0xFFFFFFFC));
}

TEST(ProcessImage, PathsAreEqualInAnyCase) {
    EXPECT_TRUE(
        equalIgnoringCase(L"C:\\Program Files\\Ravelin.exe", L"c:\\PROGRAM FILES\\rAVELIN.EXE"));
    EXPECT_TRUE(equalIgnoringCase(L"\u00C4\u00D6", L"\u00E4\u00F6"));
    EXPECT_TRUE(equalIgnoringCase(L"", L""));
}

TEST(ProcessImage, PathsDifferByEveryOtherCharacter) {
    EXPECT_FALSE(equalIgnoringCase(L"C:\\Ravelin.exe", L"C:\\Ravelin.ex"));
    EXPECT_FALSE(equalIgnoringCase(L"C:\\Ravelin.exe", L"D:\\Ravelin.exe"));
    EXPECT_FALSE(equalIgnoringCase(L"C:\\stra\u00DFe", L"C:\\strasse"));
    EXPECT_FALSE(equalIgnoringCase(L"", L"C:"));
}

}  // namespace
}  // namespace ravelin
