// The main process's end of the pipe through which child panels send what the user does.
#pragma once

#include <atomic>

namespace ravelin {

inline constexpr wchar_t pipeName[] = L"\\\\.\\pipe\\RavelinIPC";

// Set when the server could not start; child panels then forward nothing.
inline std::atomic<bool> ipcUnavailable{false};

// The body of the pipe server's thread: serves one client at a time, and only processes that run
// this executable; returns at once when the program shuts down, with a client or without.
void runPipeServer();

}  // namespace ravelin
