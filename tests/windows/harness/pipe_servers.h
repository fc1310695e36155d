// Servers in the place of the main process.
#pragma once

#include <windows.h>

#include <string>

#include "support/win32_handles.h"

namespace ravelin::test {

// The test program, or a copy of it, started to serve one client of the pipe; ended with this
// object.
class PipeServerProgram {
  public:
    explicit PipeServerProgram(const std::wstring& program);
    PipeServerProgram(const PipeServerProgram&) = delete;
    PipeServerProgram& operator=(const PipeServerProgram&) = delete;
    ~PipeServerProgram();

    bool listens() const { return listens_; }
    // Waits until the client has gone; gives what it wrote in one message, or "no client".
    std::string received();

  private:
    std::wstring results_;
    ProcessHandle process_;
    bool listens_ = false;
};

// The started process: serves one client and writes what came into the file.
int runPipeServerProgram(const wchar_t* results);

}  // namespace ravelin::test
