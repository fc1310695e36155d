#include <array>
#include <string>
#include <string_view>

#include "input/platform.h"
#include "support/win32_handles.h"

namespace ravelin::platform {

namespace {

// Empty when it cannot be had or does not fit.
std::wstring readOwnPath() {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return length < MAX_PATH ? std::wstring(path.data(), length) : std::wstring();
}

bool isOwnExecutable(std::wstring_view path) {
    static const std::wstring own = readOwnPath();
    return !own.empty() &&
           CompareStringOrdinal(own.data(), static_cast<int>(own.size()), path.data(),
                                static_cast<int>(path.size()), TRUE) == CSTR_EQUAL;
}

bool runsOwnExecutable(DWORD processId) {
    const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (!process) return false;
    std::array<wchar_t, MAX_PATH> path{};
    DWORD length = MAX_PATH;
    return QueryFullProcessImageNameW(process.get(), 0, path.data(), &length) != 0 &&
           isOwnExecutable({path.data(), length});
}

}  // namespace

bool isOwnWindowAt(Point point) {
    const HWND window = WindowFromPoint({point.x, point.y});
    const HWND root = window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr;
    DWORD processId = 0;
    if (root == nullptr || GetWindowThreadProcessId(root, &processId) == 0) return false;
    // The detached panels are processes of their own that run the same executable.
    return processId == GetCurrentProcessId() || runsOwnExecutable(processId);
}

}  // namespace ravelin::platform
