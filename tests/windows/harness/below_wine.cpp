#include "tests/windows/harness/below_wine.h"

#include <windows.h>

#include "support/utf.h"
#include "support/win32_handles.h"
#include "tests/windows/harness/child_program.h"

namespace ravelin::test {

bool runBelowWine(std::string_view program, std::string_view arguments,
                  const std::wstring& folder) {
    const std::wstring self = ownPath();
    const std::wstring launcher =
        self.substr(0, self.find_last_of(L'\\')) + L"\\tests\\wine\\run_below_wine.exe";
    std::wstring line = L'"' + launcher + L"\" " + widen(program) + L' ' + widen(arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    if (CreateProcessW(launcher.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &start, &created) == 0)
        return false;
    const ProcessHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
    return true;
}

}  // namespace ravelin::test
