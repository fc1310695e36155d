// Clients of the program's pipe, well-behaved and hostile, in this process or in others.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "support/win32_handles.h"

namespace ravelin::test {

// Opens the pipe for writing, waiting its turn among other clients; empty when there is none.
FileHandle openPipeToWrite();
bool writeMessage(const FileHandle& pipe, std::string_view message);

// The test program, or a copy of it, started to send a message; gives its exit code: 0 when every
// byte was written, 1 when the pipe could not be opened, 2 when it could not be written to.
DWORD sendFromAnotherProcess(const std::wstring& program, const std::wstring& message);
int runPipeSender(const wchar_t* message);

// The test program, or a copy of it, started to open the pipe and never to close it; ended with
// this object.
class PipeHolderProgram {
  public:
    explicit PipeHolderProgram(const std::wstring& program);
    PipeHolderProgram(const PipeHolderProgram&) = delete;
    PipeHolderProgram& operator=(const PipeHolderProgram&) = delete;
    ~PipeHolderProgram();

    bool holds() const { return holds_; }

  private:
    ProcessHandle process_;
    bool holds_ = false;
};

// The started process: opens the pipe, sets the event of that name and lives until it is ended.
int runPipeHolder(const wchar_t* eventName);

}  // namespace ravelin::test
