#include "tests/windows/harness/start_program.h"

#include <gtest/gtest.h>

#include "support/utf.h"
#include "support/win32_error.h"

namespace ravelin::test {

ProcessHandle startProgram(const std::wstring& program, const std::wstring& option,
                           const std::wstring& value) {
    std::wstring line = L"\"" + program + L"\" " + option + L" \"" + value + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &created) == 0) {
        ADD_FAILURE() << narrow(line) << ": " << lastErrorText();
        return {};
    }
    const KernelHandle thread(created.hThread);
    return ProcessHandle(created.hProcess);
}

}  // namespace ravelin::test
