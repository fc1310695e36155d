#include "tests/windows/harness/below_wine.h"

#include <windows.h>

#include "support/utf.h"
#include "support/win32_handles.h"
#include "tests/windows/harness/child_program.h"

namespace ravelin::test {
namespace {

// Wine's answer when the new process was gone before it had begun, now and then on a busy machine:
// nothing of the program has run then, so that it can be started again.
constexpr DWORD goneBeforeItBegan = ERROR_INTERNAL_ERROR;

bool start(const std::wstring& program, std::wstring line, const std::wstring& folder) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &start, &created) == 0)
        return false;
    const ProcessHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
    return true;
}

}  // namespace

bool runBelowWine(std::string_view program, std::string_view arguments,
                  const std::wstring& folder) {
    const std::wstring self = ownPath();
    const std::wstring launcher =
        self.substr(0, self.find_last_of(L'\\')) + L"\\tests\\wine\\run_below_wine.exe";
    const std::wstring line = L'"' + launcher + L"\" " + widen(program) + L' ' + widen(arguments);
    return start(launcher, line, folder) ||
           (GetLastError() == goneBeforeItBegan && start(launcher, line, folder));
}

}  // namespace ravelin::test
