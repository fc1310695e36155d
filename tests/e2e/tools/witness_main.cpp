// A window that stands for "another program": it counts the clicks that reach it and writes every
// mouse and keyboard message down, one line each, with the time at which it arrived.
//
//   witness.exe LOG [TITLE [X Y WIDTH HEIGHT]]
//
// A line: microseconds since the first line, kind, x, y (client pixels) or key code.
#include <windows.h>
// These want windows.h first.
#include <shellapi.h>
#include <windowsx.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::FILE* logFile = nullptr;
long long firstTick = 0;
int clicks = 0;

long long microseconds() {
    LARGE_INTEGER now;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    if (firstTick == 0) firstTick = now.QuadPart;
    return (now.QuadPart - firstTick) * 1'000'000 / frequency.QuadPart;
}

void note(const char* kind, long a, long b) {
    std::fprintf(logFile, "%lld %s %ld %ld\n", microseconds(), kind, a, b);
    std::fflush(logFile);
}

void noteAt(const char* kind, LPARAM place) {
    note(kind, GET_X_LPARAM(place), GET_Y_LPARAM(place));
}

// The key's code; from its scan code where that is all that was sent.
long keyOf(WPARAM w, LPARAM l) {
    if (w != 0) return static_cast<long>(w);
    return static_cast<long>(MapVirtualKeyW((static_cast<UINT>(l) >> 16) & 0xFF, MAPVK_VSC_TO_VK));
}

void paint(HWND window) {
    PAINTSTRUCT ps;
    const HDC dc = BeginPaint(window, &ps);
    RECT area;
    GetClientRect(window, &area);
    FillRect(dc, &area, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    const std::wstring text = L"Another program\n\n" + std::to_wstring(clicks) + L" clicks arrived";
    SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, text.c_str(), -1, &area, DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    EndPaint(window, &ps);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_LBUTTONDOWN:
            ++clicks;
            noteAt("left-down", l);
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_LBUTTONUP:
            noteAt("left-up", l);
            return 0;
        case WM_RBUTTONDOWN:
            noteAt("right-down", l);
            return 0;
        case WM_RBUTTONUP:
            noteAt("right-up", l);
            return 0;
        case WM_MBUTTONDOWN:
            noteAt("middle-down", l);
            return 0;
        case WM_MBUTTONUP:
            noteAt("middle-up", l);
            return 0;
        case WM_XBUTTONDOWN:
            noteAt("side-down", l);
            return TRUE;
        case WM_XBUTTONUP:
            noteAt("side-up", l);
            return TRUE;
        case WM_MOUSEMOVE:
            noteAt("move", l);
            return 0;
        case WM_MOUSEWHEEL:
            note("wheel", GET_WHEEL_DELTA_WPARAM(w), 0);
            return 0;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            note("key-down", keyOf(w, l), 0);
            return 0;
        case WM_KEYUP:
        case WM_SYSKEYUP:
            note("key-up", keyOf(w, l), 0);
            return 0;
        case WM_SETFOCUS:
            note("focus", 1, 0);
            return 0;
        case WM_KILLFOCUS:
            note("focus", 0, 0);
            return 0;
        case WM_PAINT:
            paint(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, w, l);
    }
}

int number(const wchar_t* text) {
    return static_cast<int>(std::wcstol(text, nullptr, 10));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    // In pixels of the screen, whatever the scale.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 2) return 2;
    logFile = _wfopen(arguments[1], L"wb");
    if (logFile == nullptr) return 2;
    const std::wstring title = count > 2 ? arguments[2] : L"Witness";
    const bool placed = count > 6;
    const int x = placed ? number(arguments[3]) : 520;
    const int y = placed ? number(arguments[4]) : 80;
    const int width = placed ? number(arguments[5]) : 400;
    const int height = placed ? number(arguments[6]) : 300;

    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = L"RavelinWitness";
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    RegisterClassW(&windowClass);
    const HWND window =
        CreateWindowW(windowClass.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, x,
                      y, width, height, nullptr, nullptr, instance, nullptr);
    if (window == nullptr) return 1;
    SetForegroundWindow(window);
    UpdateWindow(window);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    note("ready", origin.x, origin.y);

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    std::fclose(logFile);
    LocalFree(arguments);
    return 0;
}
