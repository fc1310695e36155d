#include "tests/windows/harness/child_program.h"

#include <array>

#include "tests/windows/harness/start_program.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin::test {

namespace {

constexpr wchar_t shownEventName[] = L"Local\\RavelinTestChildShown";
constexpr DWORD patienceMs =
    static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(patience).count());

}  // namespace

std::wstring ownPath() {
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return path.data();
}

ChildProgram::ChildProgram(const std::wstring& program, const std::wstring& title) {
    const EventHandle shown(CreateEventW(nullptr, TRUE, FALSE, shownEventName));
    // One that was started before may still have it open, and set.
    ResetEvent(shown.get());
    process_ = startProgram(program, L"--child-window", title);
    shown_ = process_ && WaitForSingleObject(shown.get(), patienceMs) == WAIT_OBJECT_0;
}

ChildProgram::~ChildProgram() {
    if (!process_) return;
    TerminateProcess(process_.get(), 0);
    WaitForSingleObject(process_.get(), patienceMs);
}

int runChildProgram(const wchar_t* title) {
    const TestWindow window(title, ChildProgram::place);
    SetWindowPos(window.handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    const EventHandle shown(OpenEventW(EVENT_MODIFY_STATE, FALSE, shownEventName));
    SetEvent(shown.get());
    Sleep(INFINITE);
    return 0;
}

}  // namespace ravelin::test
