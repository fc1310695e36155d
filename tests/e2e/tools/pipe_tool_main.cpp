// Another program before the pipe of the real one, for the end-to-end tests.
//
//   pipe_tool.exe send MESSAGE     writes it as one message
//   pipe_tool.exe hold COUNT       opens so many connections, says "holding" and keeps them
//   pipe_tool.exe serve            takes the pipe's name for itself, says "serving" and keeps it
//
// Exit code 1 when the pipe could not be opened or made, 2 when it could not be written to.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "app/pipe_server.h"
#include "support/win32_handles.h"

namespace {

using ravelin::FileHandle;

FileHandle openPipe() {
    constexpr DWORD patienceMs = 10'000;
    for (const ULONGLONG end = GetTickCount64() + patienceMs; GetTickCount64() < end;) {
        FileHandle pipe(
            CreateFileW(ravelin::pipeName, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        if (pipe || GetLastError() != ERROR_PIPE_BUSY) return pipe;
        WaitNamedPipeW(ravelin::pipeName, 100);
    }
    return {};
}

int send(std::string_view message) {
    const auto pipe = openPipe();
    if (!pipe) return 1;
    DWORD written = 0;
    const BOOL success = WriteFile(pipe.get(), message.data(), static_cast<DWORD>(message.size()),
                                   &written, nullptr);
    return success != 0 && written == message.size() ? 0 : 2;
}

int hold(int count) {
    std::vector<FileHandle> pipes;
    for (int i = 0; i < count; ++i) {
        pipes.push_back(openPipe());
        if (!pipes.back()) return 1;
    }
    std::puts("holding");
    std::fflush(stdout);
    Sleep(120'000);
    return 0;
}

// With a single instance, so that nobody can make another under the name even where the system does
// not enforce the flag of the first one (Wine does not).
int serve() {
    const FileHandle pipe(CreateNamedPipeW(ravelin::pipeName, PIPE_ACCESS_INBOUND,
                                           PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT, 1,
                                           0, 512, 0, nullptr));
    if (!pipe) return 1;
    std::puts("serving");
    std::fflush(stdout);
    Sleep(INFINITE);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count == 2 && std::strcmp(arguments[1], "serve") == 0) return serve();
    if (count != 3) return 2;
    if (std::strcmp(arguments[1], "send") == 0) return send(arguments[2]);
    if (std::strcmp(arguments[1], "hold") == 0) return hold(std::atoi(arguments[2]));
    return 2;
}
