#include "log.h"

#include <windows.h>

#include <cstdio>
#include <mutex>

#include "wide_text.h"

namespace ravelin::browser {
namespace {

// A log that has grown beyond this is begun anew.
constexpr LONGLONG largestLog = 1 << 20;

struct Log {
    std::mutex mutex;
    HANDLE file = INVALID_HANDLE_VALUE;
    std::string early;
};

// Never destroyed: threads may log while the process ends.
Log& log() {
    static Log& instance = *new Log;
    return instance;
}

void createParents(const std::wstring& path) {
    for (std::size_t at = path.find(L'\\', 4); at != std::wstring::npos;
         at = path.find(L'\\', at + 1)) {
        CreateDirectoryW(path.substr(0, at).c_str(), nullptr);
    }
}

HANDLE openForAppending(const std::wstring& path) {
    createParents(path);
    const DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    WIN32_FILE_ATTRIBUTE_DATA known{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &known) != 0 &&
        (known.nFileSizeHigh != 0 || known.nFileSizeLow > largestLog)) {
        DeleteFileW(path.c_str());
    }
    return CreateFileW(path.c_str(), FILE_APPEND_DATA, sharing, nullptr, OPEN_ALWAYS, 0, nullptr);
}

void write(HANDLE file, std::string_view text) {
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace

void openLog(const std::wstring& userDataFolder) {
    const std::string chosen = environmentText(L"RAVELIN_TEST_BROWSER_LOG");
    const std::wstring path =
        chosen.empty() ? userDataFolder + L"\\browser.log" : fromUnixPath(chosen);
    Log& current = log();
    {
        const std::scoped_lock lock(current.mutex);
        if (current.file != INVALID_HANDLE_VALUE) return;
        current.file = openForAppending(path);
        write(current.file, current.early);
        current.early.clear();
    }
    // Once, though a host that gets no view may ask many times.
    logLine("a view is asked for");
}

void logLine(std::string_view line) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char head[64];
    std::snprintf(head, sizeof head, "%02u:%02u:%02u.%03u [%lu] ", now.wHour, now.wMinute,
                  now.wSecond, now.wMilliseconds, GetCurrentProcessId());
    std::string text = head;
    text.append(line).append("\n");
    Log& current = log();
    const std::scoped_lock lock(current.mutex);
    if (current.file == INVALID_HANDLE_VALUE) {
        current.early += text;
    } else {
        write(current.file, text);
    }
}

}  // namespace ravelin::browser
