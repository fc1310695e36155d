// Starts a program of the system below Wine and ends at once:
//
//   run_below_wine.exe /bin/bash "a script" 1 2
//
// A process of its own, because Wine gives no handles for such a program: CreateProcess returns
// with whatever was in its variables, then resumes and closes that. In a process that lives on, a
// handle of somebody else's is closed now and then.
#include <windows.h>

#include <algorithm>
#include <string>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* arguments, int) {
    std::wstring line = arguments;
    std::wstring program = line.substr(0, line.find(L' '));
    std::replace(program.begin(), program.end(), L'/', L'\\');
    program.insert(0, L"\\\\?\\unix");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION nothing{};
    const BOOL started = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                                        nullptr, nullptr, &start, &nothing);
    return started != 0 ? 0 : static_cast<int>(GetLastError());
}
