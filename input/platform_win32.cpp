#include <windows.h>

#include <array>

#include "input/platform.h"
#include "support/utf.h"

namespace ravelin::platform {

namespace {

void sendAlone(INPUT& record) {
    SendInput(1, &record, sizeof record);
}

}  // namespace

void send(const MouseInput& input) {
    INPUT record{};
    record.type = INPUT_MOUSE;
    record.mi.dx = input.dx;
    record.mi.dy = input.dy;
    record.mi.mouseData = input.mouseData;
    record.mi.dwFlags = input.flags;
    sendAlone(record);
}

void send(const KeyInput& input) {
    INPUT record{};
    record.type = INPUT_KEYBOARD;
    record.ki.wScan = input.scan;
    record.ki.dwFlags = input.flags;
    sendAlone(record);
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
