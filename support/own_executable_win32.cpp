#include "support/own_executable.h"

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

#include "support/win32_handles.h"

namespace ravelin {
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

}  // namespace

bool runsOwnExecutable(std::uint32_t processId) {
    const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (!process) return false;
    std::array<wchar_t, MAX_PATH> path{};
    DWORD length = MAX_PATH;
    return QueryFullProcessImageNameW(process.get(), 0, path.data(), &length) != 0 &&
           isOwnExecutable({path.data(), length});
}

}  // namespace ravelin
