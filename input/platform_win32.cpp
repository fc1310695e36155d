#include <windows.h>

#include <algorithm>
#include <array>

#include "input/platform.h"
#include "support/utf.h"

namespace ravelin::platform {

namespace {

bool sendAlone(INPUT& record) {
    return SendInput(1, &record, sizeof record) == 1;
}

}  // namespace

bool send(const MouseInput& input) {
    INPUT record{};
    record.type = INPUT_MOUSE;
    record.mi.dx = input.dx;
    record.mi.dy = input.dy;
    record.mi.mouseData = input.mouseData;
    record.mi.dwFlags = input.flags;
    return sendAlone(record);
}

bool send(const KeyInput& input) {
    INPUT record{};
    record.type = INPUT_KEYBOARD;
    record.ki.wScan = input.scan;
    record.ki.dwFlags = input.flags;
    return sendAlone(record);
}

std::uint32_t scanCode(std::uint32_t vk) {
    return MapVirtualKeyW(vk, MAPVK_VK_TO_VSC);
}

std::string systemKeyName(std::int32_t lParam) {
    std::array<char, 128> name{};
    const int length = GetKeyNameTextA(lParam, name.data(), static_cast<int>(name.size()));
    if (length < 1) return {};
    return ansiToUtf8({name.data(), static_cast<std::size_t>(length)});
}

std::optional<Point> cursorPosition() {
    POINT point{};
    if (GetCursorPos(&point) == 0) return std::nullopt;
    return Point{point.x, point.y};
}

Size primaryScreen() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

std::uint32_t doubleClickMs() {
    return GetDoubleClickTime();
}

std::uint32_t filterKeysPauseMs() {
    FILTERKEYS keys{};
    keys.cbSize = sizeof keys;
    if (SystemParametersInfoW(SPI_GETFILTERKEYS, sizeof keys, &keys, 0) == 0) return 0;
    if ((keys.dwFlags & FKF_FILTERKEYSON) == 0) return 0;
    return std::max(keys.iDelayMSec, keys.iRepeatMSec);
}

std::int64_t counter() {
    LARGE_INTEGER value{};
    QueryPerformanceCounter(&value);
    return value.QuadPart;
}

std::int64_t counterFrequency() {
    LARGE_INTEGER value{};
    QueryPerformanceFrequency(&value);
    return value.QuadPart;
}

void sleepMs(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

}  // namespace ravelin::platform
