#include "input/synthetic_input.h"

#include "input/engine_state.h"

namespace ravelin {
namespace {

// 65536 steps across the screen, in wrapping 32-bit arithmetic. The quotient truncates toward zero
// and is not held to the screen: the system clamps a position outside it. The division is wider
// than 32 bits because the smallest 32-bit value has no positive twin.
std::int32_t normalised(std::int32_t pixel, std::int32_t screenSize) {
    const auto shifted = static_cast<std::int32_t>(static_cast<std::uint32_t>(pixel) << 16);
    return static_cast<std::int32_t>(std::int64_t{shifted} / screenSize);
}

template <class Record>
void sendOrCount(const Record& record) {
    if (!platform::send(record)) health.refusedSends.fetch_add(1);
}

}  // namespace

void moveMouseAbsolute(std::int32_t x, std::int32_t y) {
    const auto screen = platform::primaryScreen();
    sendOrCount(platform::MouseInput{.dx = normalised(x, screen.cx),
                                     .dy = normalised(y, screen.cy),
                                     .flags = mouse_flag::move | mouse_flag::absolute});
}

void moveMouseRelative(std::int32_t dx, std::int32_t dy) {
    sendOrCount(platform::MouseInput{.dx = dx, .dy = dy, .flags = mouse_flag::move});
}

void sendMouseButton(std::uint32_t flags, std::uint32_t mouseData) {
    sendOrCount(platform::MouseInput{.mouseData = mouseData, .flags = flags});
}

void sendKey(std::uint32_t vk, bool down) {
    sendKeyRecord(keyRecord(platform::scanCode(vk), isExtendedKey(vk), down));
}

void sendKeyRecord(const platform::KeyInput& record) {
    sendOrCount(record);
}

platform::KeyInput keyRecord(std::uint32_t scan, bool extended, bool down) {
    return {.scan = static_cast<std::uint16_t>(scan),
            .flags = key_flag::scanCode | (down ? 0 : key_flag::up) |
                     (extended ? key_flag::extended : 0)};
}

bool isExtendedKey(std::uint32_t vk) {
    return (vk >= 33 && vk <= 40) || vk == 45 || vk == 46;
}

std::string keyName(std::uint32_t code) {
    switch (code) {
        case 192:  // the layout's own name for it is of no help to most readers
            return "`";
        case 1:
            return "Left Mouse";
        case 2:
            return "Right Mouse";
        case 4:
            return "Middle Mouse";
        case 5:
            return "Mouse 4 (Side)";
        case 6:
            return "Mouse 5 (Side)";
        default:
            break;
    }
    constexpr std::uint32_t extendedBit = 0x01000000;
    const std::uint32_t lParam =
        (platform::scanCode(code) << 16) | (isExtendedKey(code) ? extendedBit : 0);
    auto name = platform::systemKeyName(static_cast<std::int32_t>(lParam));
    return name.empty() ? "Key[" + std::to_string(code) + ']' : name;
}

}  // namespace ravelin
