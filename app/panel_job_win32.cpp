#include "app/panel_job_win32.h"

namespace ravelin {

KernelHandle makePanelJob() {
    KernelHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
    if (job && SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                       sizeof limits) == 0)
        job.reset();
    return job;
}

ProcessHandle startInJob(const KernelHandle& job, const std::wstring& program,
                         std::wstring commandLine) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    // Suspended, so that it belongs to the job before it can start anything.
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_SUSPENDED, nullptr, nullptr, &start, &created) == 0)
        return {};
    ProcessHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
    if (job) AssignProcessToJobObject(job.get(), process.get());
    if (ResumeThread(thread.get()) == MAXDWORD) {
        TerminateProcess(process.get(), 1);
        return {};
    }
    return process;
}

}  // namespace ravelin
