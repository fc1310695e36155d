#include "tests/windows/harness/pipe_servers.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/pipe_server.h"
#include "tests/windows/harness/event_log.h"
#include "tests/windows/harness/start_program.h"

namespace ravelin::test {

namespace fs = std::filesystem;

namespace {

constexpr wchar_t listeningEventName[] = L"Local\\RavelinTestPipeListens";
constexpr DWORD patienceMs =
    static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(patience).count());

// The pipe is opened for writing by one client.
std::string serveOne(HANDLE pipe) {
    if (ConnectNamedPipe(pipe, nullptr) == 0 && GetLastError() != ERROR_PIPE_CONNECTED) {
        // A client may have come and gone already.
        return GetLastError() == ERROR_NO_DATA ? "" : "no client";
    }
    std::array<char, 4096> message{};
    DWORD length = 0;
    ReadFile(pipe, message.data(), message.size(), &length, nullptr);
    return {message.data(), length};
}

}  // namespace

PipeServerProgram::PipeServerProgram(const std::wstring& program)
    : results_((fs::temp_directory_path() / L"ravelin pipe server.txt").wstring()) {
    fs::remove(results_);
    const EventHandle listening(CreateEventW(nullptr, TRUE, FALSE, listeningEventName));
    process_ = startProgram(program, L"--serve-pipe", results_);
    listens_ = process_ && WaitForSingleObject(listening.get(), patienceMs) == WAIT_OBJECT_0;
}

PipeServerProgram::~PipeServerProgram() {
    if (process_) {
        TerminateProcess(process_.get(), 0);
        WaitForSingleObject(process_.get(), patienceMs);
    }
    std::error_code ignored;
    fs::remove(results_, ignored);
}

std::string PipeServerProgram::received() {
    if (WaitForSingleObject(process_.get(), patienceMs) != WAIT_OBJECT_0) return "no client";
    std::ifstream file(fs::path(results_), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int runPipeServerProgram(const wchar_t* results) {
    const FileHandle pipe(CreateNamedPipeW(pipeName, PIPE_ACCESS_INBOUND,
                                           PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT, 1,
                                           0, 4096, 0, nullptr));
    const EventHandle listening(OpenEventW(EVENT_MODIFY_STATE, FALSE, listeningEventName));
    if (!pipe || SetEvent(listening.get()) == 0) return 1;
    const std::string message = serveOne(pipe.get());
    std::ofstream(fs::path(results), std::ios::binary) << message;
    return 0;
}

}  // namespace ravelin::test
