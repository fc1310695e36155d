#include "themes/png_header.h"

#include <algorithm>
#include <array>

namespace ravelin {
namespace {

constexpr std::array<std::uint8_t, 16> beginning = {
    137, 80, 78, 71, 13,  10,  26,  10,    // signature
    0,   0,  0,  13, 'I', 'H', 'D', 'R'};  // length and type of the first chunk

std::uint32_t bigEndian32(std::span<const std::uint8_t> bytes) {
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
           static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

}  // namespace

std::optional<PixelSize> readPngSize(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < pngHeaderSize ||
        !std::ranges::equal(bytes.first(beginning.size()), beginning))
        return std::nullopt;
    return PixelSize{bigEndian32(bytes.subspan(16)), bigEndian32(bytes.subspan(20))};
}

}  // namespace ravelin
