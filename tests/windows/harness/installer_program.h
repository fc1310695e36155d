// This program in the place of a setup program that an update has downloaded.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace ravelin::test {

// A copy of this program as the only file of a folder; both are gone with this object.
class InstallerProgram {
  public:
    InstallerProgram();
    InstallerProgram(const InstallerProgram&) = delete;
    InstallerProgram& operator=(const InstallerProgram&) = delete;
    ~InstallerProgram();

    std::wstring path() const { return (folder_ / L"installer.exe").wstring(); }
    const std::filesystem::path& folder() const { return folder_; }

    // Makes the started copy write down what it finds: the file's text and whether the process
    // still runs.
    void watch(const std::string& file, DWORD process) const;
    // What it wrote, once it has: its parameters, then "process runs" or "process ended", then the
    // file's text, each on lines of its own. Empty when it never does.
    std::string story() const;

  private:
    std::filesystem::path log() const { return folder_.string() + ".txt"; }

    std::filesystem::path folder_;
};

// Whether the process was started as a setup program is.
bool isInstallerRun(const wchar_t* firstArgument);
int runInstallerProgram();

}  // namespace ravelin::test
