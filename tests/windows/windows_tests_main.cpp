// The tests of the Windows half. They need a desktop with nothing else on it; run_tests.sh makes
// one under Wine, where a program on a virtual desktop has no output and no exit code to give, so
// both go into the folder that the script names.
#include <gmock/gmock.h>
#include <windows.h>
// Needs the types of windows.h.
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/installer_program.h"
#include "tests/windows/harness/pipe_clients.h"
#include "tests/windows/harness/pipe_servers.h"

int main(int argc, char** argv) {
    int count = 0;
    const ravelin::LocalArguments arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    if (count == 3 && std::wstring(arguments.get()[1]) == L"--child-window") {
        return ravelin::test::runChildProgram(arguments.get()[2]);
    }
    if (count == 3 && std::wstring(arguments.get()[1]) == L"--send-to-pipe") {
        return ravelin::test::runPipeSender(arguments.get()[2]);
    }
    if (count == 3 && std::wstring(arguments.get()[1]) == L"--hold-pipe") {
        return ravelin::test::runPipeHolder(arguments.get()[2]);
    }
    if (count == 3 && std::wstring(arguments.get()[1]) == L"--serve-pipe") {
        return ravelin::test::runPipeServerProgram(arguments.get()[2]);
    }
    if (count > 1 && ravelin::test::isInstallerRun(arguments.get()[1])) {
        return ravelin::test::runInstallerProgram();
    }
    // As the process of a torn-off panel.
    if (count == 3 && std::wstring(arguments.get()[1]) == L"--child") {
        const std::wstring what = arguments.get()[2];
        if (what == L"starts another") {
            const ravelin::test::ChildProgram other(ravelin::test::ownPath(),
                                                    L"Started by a panel");
            Sleep(INFINITE);
        }
        if (what == L"stays") Sleep(INFINITE);
        return 0;
    }

    const char* folder = std::getenv("RAVELIN_TEST_RESULTS");
    const std::string results = folder != nullptr ? folder : "";
    if (!results.empty()) {
        if (std::freopen((results + "\\output.txt").c_str(), "wb", stdout) == nullptr) return 2;
        std::setvbuf(stdout, nullptr, _IONBF, 0);
    }
    testing::InitGoogleMock(&argc, argv);
    const int exitCode = RUN_ALL_TESTS();
    if (!results.empty()) {
        std::FILE* file = std::fopen((results + "\\exit_code.txt").c_str(), "w");
        if (file == nullptr) return 2;
        std::fprintf(file, "%d\n", exitCode);
        std::fclose(file);
    }
    return exitCode;
}
