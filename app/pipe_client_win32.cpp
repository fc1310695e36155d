#include <windows.h>

#include <exception>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "app/pipe_client.h"
#include "app/pipe_message.h"
#include "app/pipe_server.h"
#include "support/own_executable.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

// The panel's window stands still while a message is sent.
constexpr DWORD longestWaitMs = 200;

class Deadline {
  public:
    DWORD left() const {
        const ULONGLONG now = GetTickCount64();
        return now < end_ ? static_cast<DWORD>(end_ - now) : 0;
    }

  private:
    ULONGLONG end_ = GetTickCount64() + longestWaitMs;
};

FileHandle openPipe() {
    // The server may learn who the client is, not act in its name.
    return FileHandle(CreateFileW(pipeName, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
}

// The server takes its clients one after another.
FileHandle connectInTurn(const Deadline& deadline) {
    auto pipe = openPipe();
    while (!pipe && GetLastError() == ERROR_PIPE_BUSY) {
        const DWORD left = deadline.left();
        if (left == 0 || WaitNamedPipeW(pipeName, left) == 0) break;
        pipe = openPipe();
    }
    return pipe;
}

bool isOwnServer(HANDLE pipe) {
    ULONG process = 0;
    return GetNamedPipeServerProcessId(pipe, &process) != 0 && runsOwnExecutable(process);
}

struct Transfer {
    FileHandle pipe;
    std::string message;
    EventHandle done{CreateEventW(nullptr, TRUE, FALSE, nullptr)};

    void run() {
        DWORD written = 0;
        // Wait until the server has read the message: closing the pipe earlier would discard it.
        if (WriteFile(pipe.get(), message.data(), static_cast<DWORD>(message.size()), &written,
                      nullptr) != 0)
            FlushFileBuffers(pipe.get());
        pipe.reset();
        SetEvent(done.get());
    }
};

void send(std::string message) {
    const Deadline deadline;
    auto pipe = connectInTurn(deadline);
    if (!pipe || !isOwnServer(pipe.get())) return;
    // On a thread of its own, as neither call has a limit. It ends with the program at the latest.
    const auto transfer = std::make_shared<Transfer>(Transfer{std::move(pipe), std::move(message)});
    std::thread([transfer] { transfer->run(); }).detach();
    WaitForSingleObject(transfer->done.get(), deadline.left());
}

}  // namespace

void sendToMainProcess(std::string_view method, std::string_view value) {
    try {
        send(buildPipeMessage(method, value));
    } catch (const std::exception&) {
        return;  // no memory or no thread for it: the message is dropped
    }
}

}  // namespace ravelin
