#include "tests/windows/harness/pipe_clients.h"

#include <chrono>

#include "app/pipe_server.h"
#include "support/utf.h"
#include "tests/windows/harness/event_log.h"

namespace ravelin::test {

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
    std::wstring line = L"\"" + program + L"\" --send-to-pipe \"" + message + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &created) == 0) {
        return MAXDWORD;
    }
    const ProcessHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
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

}  // namespace ravelin::test
