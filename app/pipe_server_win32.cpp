#include <windows.h>

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "app/pipe_dispatch.h"
#include "app/pipe_message.h"
#include "app/pipe_security_win32.h"
#include "app/pipe_server.h"
#include "input/engine_state.h"
#include "input/platform_events_win32.h"
#include "support/own_executable.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

constexpr DWORD bufferSize = 512;
constexpr DWORD retryMs = 50;

FileHandle createInstance(const LocalSecurityDescriptor& security, DWORD extraFlags) {
    SECURITY_ATTRIBUTES attributes{sizeof attributes, security.get(), FALSE};
    return FileHandle(CreateNamedPipeW(
        pipeName, PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | extraFlags,
        PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
        PIPE_UNLIMITED_INSTANCES, bufferSize, bufferSize, 0, &attributes));
}

// One overlapped call at a time on one instance of the pipe, given up when the program shuts down.
class PipeCall {
  public:
    explicit PipeCall(HANDLE pipe)
        : pipe_(pipe), done_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        overlapped_.hEvent = done_.get();
    }

    bool connect() {
        if (!done_) return false;
        if (ConnectNamedPipe(pipe_, &overlapped_) != 0) return true;
        const DWORD error = GetLastError();
        if (error == ERROR_PIPE_CONNECTED) return true;
        return error == ERROR_IO_PENDING && finish().error == ERROR_SUCCESS;
    }

    struct Read {
        DWORD error = ERROR_SUCCESS;  // ERROR_MORE_DATA: the message is longer than the place
        DWORD length = 0;
    };
    Read read(char* place, DWORD size) {
        if (!done_) return {ERROR_INVALID_HANDLE, 0};
        ResetEvent(done_.get());
        if (ReadFile(pipe_, place, size, nullptr, &overlapped_) != 0) return finish();
        const DWORD error = GetLastError();
        // A message that is too long is reported at once or when the wait is over.
        if (error == ERROR_IO_PENDING || error == ERROR_MORE_DATA) return finish();
        return {error, 0};
    }

  private:
    // Waits for the call or for the shut-down, which cancels it; the system may write to the
    // buffer until the cancelled call has ended.
    Read finish() {
        const std::array<HANDLE, 2> handles{platform::quitEvent(), done_.get()};
        const DWORD woken = WaitForMultipleObjects(2, handles.data(), FALSE, INFINITE);
        DWORD length = 0;
        if (woken != WAIT_OBJECT_0 + 1) {
            CancelIoEx(pipe_, &overlapped_);
            GetOverlappedResult(pipe_, &overlapped_, &length, TRUE);
            return {ERROR_OPERATION_ABORTED, 0};
        }
        if (GetOverlappedResult(pipe_, &overlapped_, &length, FALSE) != 0)
            return {ERROR_SUCCESS, length};
        return {GetLastError(), length};
    }

    HANDLE pipe_;
    EventHandle done_;
    OVERLAPPED overlapped_{};
};

bool isOwnClient(HANDLE pipe) {
    ULONG process = 0;
    return GetNamedPipeClientProcessId(pipe, &process) != 0 && runsOwnExecutable(process);
}

// Reads what is left of a message that is longer than the limit.
bool dropRest(PipeCall& call) {
    std::array<char, bufferSize> rest{};
    PipeCall::Read read{ERROR_MORE_DATA, 0};
    while (read.error == ERROR_MORE_DATA)
        read = call.read(rest.data(), bufferSize);
    return read.error == ERROR_SUCCESS;
}

// Until the client closes its end or the program shuts down.
void serve(HANDLE pipe) {
    std::array<char, pipeMessageLimit> message{};
    PipeCall call(pipe);
    while (engine.running.load()) {
        const auto read = call.read(message.data(), message.size());
        if (read.error != ERROR_SUCCESS && read.error != ERROR_MORE_DATA) return;
        dispatchPipeMessage({message.data(), read.length});
        if (read.error == ERROR_MORE_DATA && !dropRest(call)) return;
    }
}

// The name may belong to another process, which the flag tells from a further instance of this
// one's.
FileHandle firstInstance(const LocalSecurityDescriptor& security, DWORD nameRetryMs) {
    while (engine.running.load()) {
        auto pipe = createInstance(security, FILE_FLAG_FIRST_PIPE_INSTANCE);
        ipcUnavailable.exchange(!pipe);
        if (pipe) return pipe;
        WaitForSingleObject(platform::quitEvent(), nameRetryMs);
    }
    return {};
}

FileHandle nextInstance(const LocalSecurityDescriptor& security) {
    while (engine.running.load()) {
        if (auto pipe = createInstance(security, 0)) return pipe;
        WaitForSingleObject(platform::quitEvent(), retryMs);
    }
    return {};
}

}  // namespace

void servePipe(std::chrono::milliseconds nameRetry) {
    const auto security = makePipeSecurity();
    if (!security) {
        ipcUnavailable.exchange(true);
        return;
    }
    auto pipe = firstInstance(security, static_cast<DWORD>(nameRetry.count()));
    while (pipe && engine.running.load()) {
        if (PipeCall(pipe.get()).connect() && isOwnClient(pipe.get())) serve(pipe.get());
        // The next one is there before the old one goes, so that the name is never free.
        auto next = nextInstance(security);
        DisconnectNamedPipe(pipe.get());
        pipe = std::move(next);
    }
}

void runPipeServer() {
    servePipe(pipeNameRetry);
}

}  // namespace ravelin
