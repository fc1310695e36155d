// Looks at and acts on top-level windows from outside, for the end-to-end tests.
//
//   window_tool.exe stay FILE            stays on the desktop, unseen; writes "ready" into the file
//   window_tool.exe hold NAME            holds the named mutex, prints "ready" and stays
//   window_tool.exe hook DLL FILE        lets the recorder's DLL see the messages of every program
//   on
//                                        the desktop for as long as it runs; writes "ready" into
//                                        the file
//   window_tool.exe list                 one line a visible window: its title
//   window_tool.exe state TITLE          one line of JSON about the window, once its thread is at
//                                        rest from what it was doing when it was looked at
//   window_tool.exe text TITLE           the texts of its child windows, as in a message box
//   window_tool.exe process TITLE        the id of its process
//   window_tool.exe handles TITLE        how many handles its process has
//   window_tool.exe close|minimize|restore|maximize TITLE
//   window_tool.exe press TITLE ID       presses a button of a dialog, or of a page in it, by its
//                                        identifier
//   window_tool.exe crash TITLE          makes the process of the window fail as a bug would
//   window_tool.exe place TITLE X Y      puts it elsewhere without sizing it
//   window_tool.exe move TITLE X Y WIDTH HEIGHT    as at the end of a drag by the user
//
// A title matches from its beginning. Exit code 3 when there is no such window or button: Wine
// itself ends with 1 when it cannot start a program.
#include <windows.h>
// Wants windows.h first.
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::wstring titleOf(HWND window) {
    wchar_t text[512];
    const int length = GetWindowTextW(window, text, 512);
    return std::wstring(text, static_cast<std::size_t>(length));
}

void print(const std::wstring& text) {
    char utf8[2048];
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, utf8, sizeof utf8, nullptr, nullptr);
    std::printf("%s\n", length > 0 ? utf8 : "");
}

struct Search {
    std::wstring_view title;
    HWND found;
};

BOOL CALLBACK match(HWND window, LPARAM argument) {
    auto& search = *reinterpret_cast<Search*>(argument);
    if (!IsWindowVisible(window) || !std::wstring_view(titleOf(window)).starts_with(search.title))
        return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK list(HWND window, LPARAM) {
    if (IsWindowVisible(window) && GetWindowTextLengthW(window) > 0) print(titleOf(window));
    return TRUE;
}

struct Control {
    int id;
    HWND found;
};

// Also in a page inside the dialog.
BOOL CALLBACK findControl(HWND window, LPARAM argument) {
    auto& control = *reinterpret_cast<Control*>(argument);
    if (GetDlgCtrlID(window) != control.id) return TRUE;
    control.found = window;
    return FALSE;
}

BOOL CALLBACK childText(HWND window, LPARAM) {
    if (GetWindowTextLengthW(window) > 0) print(titleOf(window));
    return TRUE;
}

const char* truth(bool value) {
    return value ? "true" : "false";
}

// A moving window's rectangle is new a moment before the display has moved it too, and input that
// is made in between lands wrong. The window's thread answers after that moment.
void awaitItsThread(HWND window) {
    constexpr UINT patienceMs = 10'000;
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patienceMs, &answer);
}

GUITHREADINFO threadInfo(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

// Wine divides by the scale what a program that knows of it sets for a window of another one, and
// only that: what is asked comes in pixels of the screen.
void countInPixels() {
    SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE);
}

void printState(HWND window) {
    RECT r;
    GetWindowRect(window, &r);
    const auto style = GetWindowLongPtrW(window, GWL_STYLE);
    const auto extended = GetWindowLongPtrW(window, GWL_EXSTYLE);
    const GUITHREADINFO info = threadInfo(window);
    awaitItsThread(window);
    std::printf(
        "{\"left\":%ld,\"top\":%ld,\"width\":%ld,\"height\":%ld,\"minimized\":%s,\"maximized\":%s,"
        "\"foreground\":%s,\"topmost\":%s,\"frame\":%s,\"holdsMouse\":%s,\"showsMenu\":%s,"
        "\"cloaked\":%s}\n",
        r.left, r.top, r.right - r.left, r.bottom - r.top, truth(IsIconic(window)),
        truth(IsZoomed(window)), truth(GetForegroundWindow() == window),
        truth((extended & WS_EX_TOPMOST) != 0), truth((style & WS_CAPTION) == WS_CAPTION),
        truth(info.hwndCapture == window), truth(info.hwndMenuOwner != nullptr),
        // Noted by the library that the tests have in place of the system's.
        truth(GetPropW(window, L"RavelinTestCloaked") != nullptr));
}

int number(const wchar_t* text) {
    return static_cast<int>(std::wcstol(text, nullptr, 10));
}

// One entry of the system's table of open handles, as SystemExtendedHandleInformation gives it.
struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creatorIndex;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleTable {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// As the kernel's library exports it; the headers do not know this kind of information.
extern "C" __declspec(dllimport) LONG WINAPI
    NtQuerySystemInformation(ULONG which, void* buffer, ULONG size, ULONG* needed);
constexpr ULONG extendedHandleInformation = 64;

// Asked of the system: the count that a process gives of itself is 0 under Wine.
int handleCount(DWORD process) {
    std::vector<std::max_align_t> buffer(1 << 18);
    const auto size = static_cast<ULONG>(buffer.size() * sizeof buffer[0]);
    if (NtQuerySystemInformation(extendedHandleInformation, buffer.data(), size, nullptr) < 0)
        return -1;
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    const HandleEntry* entry = table->entries;
    return static_cast<int>(std::count_if(entry, entry + table->count,
                                          [=](const auto& one) { return one.process == process; }));
}

// A thread that begins at an address where no code can be.
void crash(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
    if (process == nullptr) return;
    const auto nowhere = reinterpret_cast<LPTHREAD_START_ROUTINE>(std::uintptr_t{16});
    const HANDLE thread = CreateRemoteThread(process, nullptr, 0, nowhere, nullptr, 0, nullptr);
    if (thread != nullptr) CloseHandle(thread);
    CloseHandle(process);
}

int act(std::wstring_view command, HWND window, int count, wchar_t** arguments) {
    if (command == L"state") {
        printState(window);
    } else if (command == L"text") {
        EnumChildWindows(window, childText, 0);
    } else if (command == L"process") {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        std::printf("%lu\n", process);
    } else if (command == L"handles") {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        std::printf("%d\n", handleCount(process));
    } else if (command == L"close") {
        PostMessageW(window, WM_CLOSE, 0, 0);
    } else if (command == L"minimize") {
        ShowWindow(window, SW_MINIMIZE);
    } else if (command == L"restore") {
        ShowWindow(window, SW_RESTORE);
    } else if (command == L"maximize") {
        ShowWindow(window, SW_MAXIMIZE);
    } else if (command == L"press" && count > 3) {
        Control button{number(arguments[3]), nullptr};
        EnumChildWindows(window, findControl, reinterpret_cast<LPARAM>(&button));
        if (button.found == nullptr) return 3;
        PostMessageW(button.found, BM_CLICK, 0, 0);
    } else if (command == L"crash") {
        crash(window);
    } else if (command == L"place" && count > 4) {
        countInPixels();
        SetWindowPos(window, nullptr, number(arguments[3]), number(arguments[4]), 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    } else if (command == L"move" && count > 6) {
        countInPixels();
        MoveWindow(window, number(arguments[3]), number(arguments[4]), number(arguments[5]),
                   number(arguments[6]), TRUE);
        SendMessageW(window, WM_EXITSIZEMOVE, 0, 0);
    } else {
        return 2;
    }
    return 0;
}

int hold(const wchar_t* name) {
    if (CreateMutexW(nullptr, TRUE, name) == nullptr || GetLastError() == ERROR_ALREADY_EXISTS)
        return 2;
    std::puts("ready");
    std::fflush(stdout);
    Sleep(INFINITE);
    return 0;
}

int sayReadyAndStay(const wchar_t* noteFile) {
    std::FILE* const note = _wfopen(noteFile, L"wb");
    if (note == nullptr) return 2;
    std::fputs("ready\n", note);
    std::fclose(note);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}

int stay(const wchar_t* noteFile) {
    if (CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                        nullptr) == nullptr)
        return 2;
    return sayReadyAndStay(noteFile);
}

bool setHook(HMODULE library, int kind, const char* function) {
    const auto procedure =
        reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(library, function)));
    return procedure != nullptr && SetWindowsHookExW(kind, procedure, library, 0) != nullptr;
}

int hook(const wchar_t* path, const wchar_t* noteFile) {
    const HMODULE library = LoadLibraryW(path);
    if (library == nullptr || !setHook(library, WH_CALLWNDPROC, "seeMessage") ||
        !setHook(library, WH_CALLWNDPROCRET, "seeAnswer"))
        return 2;
    return sayReadyAndStay(noteFile);
}

}  // namespace

int main() {
    // In pixels of the screen, whatever the scale.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 2) return 2;
    const std::wstring_view command = arguments[1];
    if (command == L"list") {
        EnumWindows(list, 0);
        return 0;
    }
    if (count < 3) return 2;
    if (command == L"stay") return stay(arguments[2]);
    if (command == L"hook" && count > 3) return hook(arguments[2], arguments[3]);
    if (command == L"hold") return hold(arguments[2]);
    Search search{arguments[2], nullptr};
    EnumWindows(match, reinterpret_cast<LPARAM>(&search));
    return search.found == nullptr ? 3 : act(command, search.found, count, arguments);
}
