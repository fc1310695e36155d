// The system around a program, told and handled from outside, for the end-to-end tests.
//
//   system_tool.exe monitors             one line of JSON: every monitor with its whole and its
//   work
//                                        area
//   system_tool.exe layout               the keyboard layout's identifier, as 00000407
//   system_tool.exe keys VK...           one line a key: its code, its scan code, its name as
//   UTF-8;
//                                        the name is empty where the system has none
//   system_tool.exe end-session TITLE FLAGS [MICROSECONDS]
//                                        ends the user's session for the process of that window:
//                                        asks its windows, then tells them, with FLAGS as the
//                                        reason, and ends the process so long after the last answer
//                                        (never when left out). Prints how long the answers took
//   system_tool.exe remove-hooks         removes every hook of the desktop behind the back of its
//   owner,
//                                        as Windows removes one that was slow; prints how many
//   system_tool.exe in-console COMMAND   runs a program with windows from a console as cmd does: it
//                                        gets neither the console nor handles for its output.
//                                        Prints what then stands in the console, and ends with its
//                                        exit code
//   system_tool.exe refuse-end TITLE     asks that process, then tells it that the session goes on,
//                                        as when another program has refused
//   system_tool.exe close-as-setup TITLE asks the visible windows of that process to close, as
//   setup
//                                        does with a running version
//
// A title matches from its beginning. Exit code 3 when there is no such window, 4 when a window
// refuses the end or does not answer: Wine itself ends with 1 when it cannot start a program.
#include <windows.h>
// Wants windows.h first.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

BOOL CALLBACK addWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> topLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(addWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

DWORD processOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

// The process of the visible window with that title; 0 when there is none.
DWORD processOfWindow(std::wstring_view title) {
    for (HWND window : topLevelWindows()) {
        std::array<wchar_t, 512> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        if (IsWindowVisible(window) && std::wstring_view(text.data()).starts_with(title))
            return processOf(window);
    }
    return 0;
}

std::vector<HWND> windowsOf(DWORD process) {
    std::vector<HWND> windows = topLevelWindows();
    std::erase_if(windows, [=](HWND window) { return processOf(window) != process; });
    return windows;
}

std::string areaText(const RECT& area) {
    return "{\"left\":" + std::to_string(area.left) + ",\"top\":" + std::to_string(area.top) +
           ",\"width\":" + std::to_string(area.right - area.left) +
           ",\"height\":" + std::to_string(area.bottom - area.top) + "}";
}

BOOL CALLBACK addMonitor(HMONITOR monitor, HDC, RECT*, LPARAM list) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(monitor, &info) == 0) return TRUE;
    auto& text = *reinterpret_cast<std::string*>(list);
    if (!text.empty()) text += ',';
    text += "{\"primary\":";
    text += (info.dwFlags & MONITORINFOF_PRIMARY) != 0 ? "true" : "false";
    text += ",\"whole\":" + areaText(info.rcMonitor) + ",\"work\":" + areaText(info.rcWork) + "}";
    return TRUE;
}

int printMonitors() {
    std::string text;
    EnumDisplayMonitors(nullptr, nullptr, addMonitor, reinterpret_cast<LPARAM>(&text));
    std::printf("[%s]\n", text.c_str());
    return 0;
}

int printLayout() {
    std::array<char, KL_NAMELENGTH> name{};
    if (GetKeyboardLayoutNameA(name.data()) == 0) return 3;
    std::puts(name.data());
    return 0;
}

// The keys that a key message marks as extended, so that they are told from their twins.
bool isExtended(UINT vk) {
    return (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE;
}

int printKeys(int count, wchar_t** arguments) {
    for (int i = 0; i < count; ++i) {
        const UINT vk = static_cast<UINT>(std::wcstoul(arguments[i], nullptr, 10));
        const UINT scan = MapVirtualKeyW(vk, MAPVK_VK_TO_VSC);
        const UINT details = scan << 16U | (isExtended(vk) ? 0x01000000U : 0U);
        std::array<wchar_t, 128> name{};
        GetKeyNameTextW(static_cast<LONG>(details), name.data(), static_cast<int>(name.size()));
        std::array<char, 512> utf8{};
        WideCharToMultiByte(CP_UTF8, 0, name.data(), -1, utf8.data(), static_cast<int>(utf8.size()),
                            nullptr, nullptr);
        std::printf("%u %u %s\n", vk, scan, utf8.data());
    }
    return 0;
}

std::int64_t microseconds() {
    LARGE_INTEGER count;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return count.QuadPart * 1'000'000 / perSecond.QuadPart;
}

// A window's answer, waited for as long as a test may take; nothing from a window that has gone.
bool tell(HWND window, UINT message, WPARAM argument, LPARAM reason) {
    constexpr UINT patienceMs = 120'000;
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(window, message, argument, reason, SMTO_NORMAL, patienceMs, &answer) ==
        0)
        return IsWindow(window) == FALSE;
    return message != WM_QUERYENDSESSION || answer != 0;
}

bool tellAll(const std::vector<HWND>& windows, UINT message, WPARAM argument, LPARAM reason) {
    return std::ranges::all_of(
        windows, [=](HWND window) { return tell(window, message, argument, reason); });
}

int refuseEnd(DWORD process) {
    const std::vector<HWND> windows = windowsOf(process);
    const bool willing = tellAll(windows, WM_QUERYENDSESSION, 0, 0);
    return tellAll(windows, WM_ENDSESSION, FALSE, 0) && willing ? 0 : 4;
}

// As Windows does it: first every window is asked, then every window is told, and after the last
// answer nothing keeps the process alive.
int endSession(DWORD process, LPARAM reason, const wchar_t* killAfter) {
    const HANDLE handle = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process);
    if (handle == nullptr) return 3;
    const std::vector<HWND> windows = windowsOf(process);
    const std::int64_t began = microseconds();
    const bool willing = tellAll(windows, WM_QUERYENDSESSION, 0, reason);
    const bool told = tellAll(windows, WM_ENDSESSION, willing ? TRUE : FALSE, reason);
    const std::int64_t answered = microseconds();
    if (willing && killAfter != nullptr) {
        const std::int64_t end = answered + std::wcstoll(killAfter, nullptr, 10);
        // Sleeping would round the moment to that of the system's clock.
        while (microseconds() < end)
            SwitchToThread();
        TerminateProcess(handle, 1);
        WaitForSingleObject(handle, INFINITE);
    }
    std::printf("%lld\n", static_cast<long long>(answered - began));
    CloseHandle(handle);
    return willing && told ? 0 : 4;
}

// The lines of the console up to the last one with a text.
std::string consoleText(HANDLE screen) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    GetConsoleScreenBufferInfo(screen, &info);
    std::string text;
    std::string line(static_cast<std::size_t>(info.dwSize.X), ' ');
    std::string gap;
    for (SHORT y = 0; y < info.dwSize.Y; ++y) {
        DWORD read = 0;
        ReadConsoleOutputCharacterA(screen, line.data(), static_cast<DWORD>(line.size()), {0, y},
                                    &read);
        const auto end = line.find_last_not_of(' ');
        if (end != std::string::npos) text += gap + line.substr(0, end + 1);
        gap = end != std::string::npos ? "\n" : gap + "\n";
    }
    return text;
}

int runInConsole(wchar_t* command) {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    FreeConsole();
    if (AllocConsole() == 0) return 2;
    const HANDLE screen =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    for (const DWORD which : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE})
        SetStdHandle(which, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    // Windows gives a program with windows no console of its own accord; Wine does, unless told.
    if (CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                       nullptr, &start, &process) == 0)
        return 2;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    const std::string text = consoleText(screen);
    DWORD written = 0;
    WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return static_cast<int>(code);
}

// A handle with an empty upper half stands for whatever lies at its place in the table.
int removeHooks() {
    int removed = 0;
    for (std::uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
        removed += UnhookWindowsHookEx(reinterpret_cast<HHOOK>(handle)) != 0 ? 1 : 0;
    std::printf("%d\n", removed);
    return 0;
}

int closeAsSetup(DWORD process) {
    for (HWND window : windowsOf(process))
        if (IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return 0;
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 2) return 2;
    const std::wstring_view command = arguments[1];
    if (command == L"monitors") return printMonitors();
    if (command == L"layout") return printLayout();
    if (command == L"remove-hooks") return removeHooks();
    if (command == L"keys") return printKeys(count - 2, arguments + 2);
    if (count < 3) return 2;
    if (command == L"in-console") return runInConsole(arguments[2]);
    const DWORD process = processOfWindow(arguments[2]);
    if (process == 0) return 3;
    if (command == L"end-session" && count > 3)
        return endSession(process, static_cast<LPARAM>(std::wcstoul(arguments[3], nullptr, 0)),
                          count > 4 ? arguments[4] : nullptr);
    if (command == L"refuse-end") return refuseEnd(process);
    if (command == L"close-as-setup") return closeAsSetup(process);
    return 2;
}
