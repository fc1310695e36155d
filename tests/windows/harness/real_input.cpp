#include "tests/windows/harness/real_input.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/win32_error.h"
#include "tests/windows/harness/below_wine.h"

namespace ravelin::test {

namespace {

// Where the script that runs the tests has found xdotool; empty without it.
std::string xdotoolPath() {
    std::array<char, MAX_PATH> path{};
    const DWORD length = GetEnvironmentVariableA("RAVELIN_XDOTOOL", path.data(), MAX_PATH);
    return {path.data(), length < MAX_PATH ? length : 0};
}

}  // namespace

bool hasRealInput() {
    static const bool known = !xdotoolPath().empty();
    return known;
}

void realInput(std::string_view commands) {
    EXPECT_TRUE(runBelowWine(xdotoolPath(), commands)) << "xdotool: " << lastErrorText();
}

void realInput(HWND window, std::string_view commands) {
    // Wine keeps the number of the X window with its own window.
    const auto id = reinterpret_cast<std::uintptr_t>(GetPropW(window, L"__wine_x11_whole_window"));
    realInput("windowfocus --sync " + std::to_string(id) + " " + std::string(commands));
}

}  // namespace ravelin::test
