#include "tests/windows/harness/installer_program.h"

#include <fstream>
#include <string_view>

#include "support/win32_handles.h"
#include "tests/support/environment.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin::test {

namespace fs = std::filesystem;

namespace {

constexpr char logVariable[] = "RAVELIN_TEST_INSTALLER_LOG";
constexpr char fileVariable[] = "RAVELIN_TEST_INSTALLER_FILE";
constexpr char processVariable[] = "RAVELIN_TEST_INSTALLER_PROCESS";
constexpr std::string_view end = "\n--\n";

bool runs(DWORD id) {
    const ProcessHandle process(OpenProcess(SYNCHRONIZE, FALSE, id));
    return process && WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

}  // namespace

InstallerProgram::InstallerProgram()
    : folder_(fs::temp_directory_path() / L"ravelin test installer") {
    fs::create_directories(folder_);
    fs::remove(log());
    fs::copy_file(ownPath(), path(), fs::copy_options::overwrite_existing);
}

InstallerProgram::~InstallerProgram() {
    for (const char* name : {logVariable, fileVariable, processVariable})
        unsetEnvironment(name);
    // A program that has just ended may hold its file for a moment.
    eventually([this] {
        std::error_code error;
        fs::remove_all(folder_, error);
        return !error;
    });
    fs::remove(log());
}

void InstallerProgram::watch(const std::string& file, DWORD process) const {
    setEnvironment(logVariable, log().string());
    setEnvironment(fileVariable, file);
    setEnvironment(processVariable, std::to_string(process));
}

std::string InstallerProgram::story() const {
    std::string text;
    eventually([&] { return (text = readBytes(log().string())).ends_with(end); });
    return text.substr(0, text.rfind(end));
}

bool isInstallerRun(const wchar_t* firstArgument) {
    return std::wstring_view(firstArgument) == L"/VERYSILENT";
}

int runInstallerProgram() {
    const std::string line = GetCommandLineA();
    std::ofstream(std::getenv(logVariable), std::ios::binary)
        << line.substr(line.find("/VERYSILENT")) << '\n'
        << (runs(std::stoul(std::getenv(processVariable))) ? "process runs\n" : "process ended\n")
        << readBytes(std::getenv(fileVariable)) << end;
    return 0;
}

}  // namespace ravelin::test
