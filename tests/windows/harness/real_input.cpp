#include "tests/windows/harness/real_input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "support/utf.h"
#include "support/win32_error.h"
#include "support/win32_handles.h"

namespace ravelin::test {

namespace {

// Where the script that runs the tests has found xdotool, as Wine names files of the Unix side.
std::wstring xdotoolPath() {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetEnvironmentVariableW(L"RAVELIN_XDOTOOL", path.data(), MAX_PATH);
    std::wstring unixPath(path.data(), length < MAX_PATH ? length : 0);
    if (unixPath.empty()) return {};
    std::replace(unixPath.begin(), unixPath.end(), L'/', L'\\');
    return L"\\\\?\\unix" + unixPath;
}

}  // namespace

bool hasRealInput() {
    static const bool known = !xdotoolPath().empty();
    return known;
}

void realInput(std::string_view commands) {
    const std::wstring program = xdotoolPath();
    std::wstring line = L"xdotool " + widen(commands);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION created{};
    const BOOL started = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                                        nullptr, nullptr, &start, &created);
    EXPECT_NE(started, 0) << "xdotool: " << lastErrorText();
    const ProcessHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
}

void realInput(HWND window, std::string_view commands) {
    // Wine keeps the number of the X window with its own window.
    const auto id = reinterpret_cast<std::uintptr_t>(GetPropW(window, L"__wine_x11_whole_window"));
    realInput("windowfocus --sync " + std::to_string(id) + " " + std::string(commands));
}

}  // namespace ravelin::test
