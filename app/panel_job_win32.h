// The job that ends panel processes together with the main process.
#pragma once

#include <windows.h>

#include <string>

#include "support/win32_handles.h"

namespace ravelin {

// A job that ends its processes when the last handle to it is closed: with the process that holds
// it, whatever ends that. What its processes start does not belong to it: the engine's processes
// serve all of the program's windows and end by themselves, and a browser that shows a link is the
// user's. Empty when the system has none to give.
KernelHandle makePanelJob();

// Starts the program as a process of the job; without one when the job is empty or does not take
// it, as on a system that allows no job within another. Empty when it cannot be started.
ProcessHandle startInJob(const KernelHandle& job, const std::wstring& program,
                         std::wstring commandLine);

}  // namespace ravelin
