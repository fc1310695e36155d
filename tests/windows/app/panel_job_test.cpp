// The job of the panel processes: this test program, started as one of them.
#include "app/panel_job_win32.h"

#include <gtest/gtest.h>

#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/event_log.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin {
namespace {

using test::eventually;

ProcessHandle start(const KernelHandle& job, const std::wstring& what = L"stays") {
    const auto program = test::ownPath();
    return startInJob(job, program, L"\"" + program + L"\" --child \"" + what + L"\"");
}

bool ends(const ProcessHandle& process) {
    const std::chrono::milliseconds limit = test::patience;
    return WaitForSingleObject(process.get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

bool isIn(const KernelHandle& job, const ProcessHandle& process) {
    BOOL inside = FALSE;
    EXPECT_NE(IsProcessInJob(process.get(), job.get(), &inside), 0);
    return inside != FALSE;
}

DWORD exitCodeOf(const ProcessHandle& process) {
    DWORD code = MAXDWORD;
    GetExitCodeProcess(process.get(), &code);
    return code;
}

// Ended with this object.
struct Running {
    ProcessHandle process;
    ~Running() {
        TerminateProcess(process.get(), 0);
        ends(process);
    }
};

TEST(PanelJob, EndsItsProcessesWithItsLastHandle) {
    auto job = makePanelJob();
    ASSERT_TRUE(job);
    const Running first{start(job)};
    const Running second{start(job)};
    ASSERT_TRUE(isIn(job, first.process));
    EXPECT_EQ(exitCodeOf(first.process), static_cast<DWORD>(STILL_ACTIVE));
    job.reset();
    EXPECT_TRUE(ends(first.process));
    EXPECT_TRUE(ends(second.process));
}

TEST(PanelJob, DoesNotHoldWhatItsProcessesStart) {
    auto job = makePanelJob();
    const Running panel{start(job, L"starts another")};
    HWND window = nullptr;
    ASSERT_TRUE(eventually([&] {
        window = FindWindowW(nullptr, L"Started by a panel");
        return window != nullptr;
    }));
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const Running other{ProcessHandle(OpenProcess(PROCESS_ALL_ACCESS, FALSE, id))};
    ASSERT_TRUE(other.process);
    EXPECT_TRUE(isIn(job, panel.process));
    EXPECT_FALSE(isIn(job, other.process));
    job.reset();
    EXPECT_TRUE(ends(panel.process));
    EXPECT_EQ(exitCodeOf(other.process), static_cast<DWORD>(STILL_ACTIVE));
}

TEST(PanelJob, IsDoneWithoutWhenTheSystemGivesNone) {
    const Running panel{start({}, L"ends")};
    ASSERT_TRUE(panel.process);
    EXPECT_TRUE(ends(panel.process));
    EXPECT_EQ(exitCodeOf(panel.process), 0U);
}

TEST(PanelJob, IsDoneWithoutWhenItDoesNotTakeTheProcess) {
    const auto job = makePanelJob();
    KernelHandle mayOnlyLook;
    ASSERT_NE(DuplicateHandle(GetCurrentProcess(), job.get(), GetCurrentProcess(),
                              mayOnlyLook.put(), JOB_OBJECT_QUERY, FALSE, 0),
              0);
    const Running panel{start(mayOnlyLook, L"ends")};
    ASSERT_TRUE(panel.process);
    EXPECT_FALSE(isIn(job, panel.process));
    EXPECT_TRUE(ends(panel.process));
    EXPECT_EQ(exitCodeOf(panel.process), 0U);
}

TEST(PanelJob, StartsNothingThatIsNoProgram) {
    EXPECT_FALSE(startInJob(makePanelJob(), L"C:\\none.exe", L"none"));
}

}  // namespace
}  // namespace ravelin
