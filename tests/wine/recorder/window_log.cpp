#include "window_log.h"

#include <cstdint>
#include <cstdio>

namespace ravelin::recorder {
namespace {

// Each module that records has a handle of its own; a line is written at once and at the end.
HANDLE openLog() {
    wchar_t folder[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(L"RAVELIN_TEST_WINDOW_LOG", folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return INVALID_HANDLE_VALUE;
    const std::wstring path = L"\\\\?\\unix" + std::wstring(folder, length) + L"/" +
                              std::to_wstring(GetCurrentProcessId()) + L".log";
    return CreateFileW(path.c_str(), FILE_APPEND_DATA,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                       0, nullptr);
}

HANDLE log() {
    static const HANDLE file = openLog();
    return file;
}

double milliseconds() {
    LARGE_INTEGER now;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace

bool isRecording() {
    return log() != INVALID_HANDLE_VALUE;
}

void record(HWND window, const std::string& what) {
    if (!isRecording()) return;
    char head[64];
    std::snprintf(head, sizeof head, "%.3f %llx ", milliseconds(),
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(window)));
    const std::string line = head + what + "\n";
    DWORD written = 0;
    WriteFile(log(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace ravelin::recorder
