#include "tests/windows/harness/pipe_clients.h"

#include <chrono>

#include "app/pipe_server.h"
#include "support/utf.h"
#include "tests/windows/harness/event_log.h"
#include "tests/windows/harness/start_program.h"

namespace ravelin::test {

namespace {

constexpr wchar_t holdingEventName[] = L"Local\\RavelinTestPipeHeld";

}  // namespace

FileHandle openPipeToWrite() {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        FileHandle pipe(
            CreateFileW(pipeName, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        if (pipe || GetLastError() != ERROR_PIPE_BUSY || std::chrono::steady_clock::now() > end)
            return pipe;
        WaitNamedPipeW(pipeName, 100);
    }
}

bool writeMessage(const FileHandle& pipe, std::string_view message) {
    DWORD written = 0;
    return WriteFile(pipe.get(), message.data(), static_cast<DWORD>(message.size()), &written,
                     nullptr) != 0 &&
           written == message.size();
}

DWORD sendFromAnotherProcess(const std::wstring& program, const std::wstring& message) {
    const auto process = startProgram(program, L"--send-to-pipe", message);
    if (!process) return MAXDWORD;
    WaitForSingleObject(process.get(), 20'000);
    DWORD exitCode = MAXDWORD;
    GetExitCodeProcess(process.get(), &exitCode);
    return exitCode;
}

int runPipeSender(const wchar_t* message) {
    const auto pipe = openPipeToWrite();
    if (!pipe) return 1;
    return writeMessage(pipe, narrow(message)) ? 0 : 2;
}

PipeHolderProgram::PipeHolderProgram(const std::wstring& program) {
    const EventHandle holding(CreateEventW(nullptr, TRUE, FALSE, holdingEventName));
    process_ = startProgram(program, L"--hold-pipe", holdingEventName);
    holds_ = process_ && WaitForSingleObject(holding.get(), 20'000) == WAIT_OBJECT_0;
}

PipeHolderProgram::~PipeHolderProgram() {
    if (!process_) return;
    TerminateProcess(process_.get(), 0);
    WaitForSingleObject(process_.get(), 20'000);
}

int runPipeHolder(const wchar_t* eventName) {
    const auto pipe = openPipeToWrite();
    const EventHandle holding(OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName));
    if (!pipe || SetEvent(holding.get()) == 0) return 1;
    Sleep(INFINITE);
    return 0;
}

}  // namespace ravelin::test
