#include <windows.h>

#include "app/pipe_client.h"
#include "app/pipe_message.h"
#include "app/pipe_server.h"
#include "support/own_executable.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

// The server takes its clients one after another; this long a message waits for its turn.
constexpr DWORD turnMs = 200;

FileHandle openPipe() {
    // The server may learn who the client is, not act in its name.
    return FileHandle(CreateFileW(pipeName, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
}

FileHandle connectInTurn() {
    auto pipe = openPipe();
    const ULONGLONG end = GetTickCount64() + turnMs;
    while (!pipe && GetLastError() == ERROR_PIPE_BUSY) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end || WaitNamedPipeW(pipeName, static_cast<DWORD>(end - now)) == 0) break;
        pipe = openPipe();
    }
    return pipe;
}

bool isOwnServer(HANDLE pipe) {
    ULONG process = 0;
    return GetNamedPipeServerProcessId(pipe, &process) != 0 && runsOwnExecutable(process);
}

}  // namespace

void sendToMainProcess(std::string_view method, std::string_view value) {
    const auto message = buildPipeMessage(method, value);
    const auto pipe = connectInTurn();
    if (!pipe || !isOwnServer(pipe.get())) return;
    DWORD written = 0;
    if (WriteFile(pipe.get(), message.data(), static_cast<DWORD>(message.size()), &written,
                  nullptr) == 0)
        return;
    // A client that is gone before the server has turned to it is none to it.
    FlushFileBuffers(pipe.get());
}

}  // namespace ravelin
