// Another process with a window.
#pragma once

#include <windows.h>

#include <string>

#include "support/win32_handles.h"

namespace ravelin::test {

// The path of the running test program.
std::wstring ownPath();

// The test program, or a copy of it, started again to show a window at a fixed place above all
// others; ended with this object.
class ChildProgram {
  public:
    static constexpr RECT place{600, 200, 900, 500};

    explicit ChildProgram(const std::wstring& program, const std::wstring& title = L"Child window");
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;
    ~ChildProgram();

    bool showsItsWindow() const { return shown_; }
    DWORD processId() const { return GetProcessId(process_.get()); }

  private:
    ProcessHandle process_;
    bool shown_ = false;
};

// The started process: shows the window, says so and lives until it is ended.
int runChildProgram(const wchar_t* title);

}  // namespace ravelin::test
