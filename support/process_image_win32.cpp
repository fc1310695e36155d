#include <array>
#include <string>

#include "support/process_image.h"
#include "support/win32_handles.h"

namespace ravelin {

namespace {

// Empty when it cannot be had or does not fit.
std::wstring readOwnPath() {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return length < MAX_PATH ? std::wstring(path.data(), length) : std::wstring();
}

}  // namespace

bool runsThisExecutable(std::uint32_t processId) {
    static const std::wstring own = readOwnPath();
    const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (own.empty() || !process) return false;
    std::array<wchar_t, MAX_PATH> path{};
    DWORD length = MAX_PATH;
    return QueryFullProcessImageNameW(process.get(), 0, path.data(), &length) != 0 &&
           equalIgnoringCase(own, {path.data(), length});
}

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace ravelin
