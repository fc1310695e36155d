// The main process's end of the pipe through which child panels send what the user does.
#pragma once

#include <atomic>
#include <chrono>

namespace ravelin {

inline constexpr wchar_t pipeName[] = L"\\\\.\\pipe\\RavelinIPC";

// Set while the server cannot be reached under that name: another user's main process has it, as a
// rule, and what a panel forwards would be lost.
inline std::atomic<bool> ipcUnavailable{false};

// How long the server waits before it tries again to take the name.
inline constexpr std::chrono::seconds pipeNameRetry{5};

// The body of the pipe server's thread: serves one client at a time, and only processes that run
// this executable; returns at once when the program shuts down, with a client or without, or still
// waiting for the name.
void runPipeServer();
// The same with another wait.
void servePipe(std::chrono::milliseconds nameRetry);

}  // namespace ravelin
