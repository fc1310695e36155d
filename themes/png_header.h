// The beginning of a PNG file: signature and image header chunk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace ravelin {

struct PixelSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    bool operator==(const PixelSize&) const = default;
};

// As many bytes as readPngSize looks at.
inline constexpr std::size_t pngHeaderSize = 24;

// The size that the image header claims, whatever it is; nothing when the bytes are too few, have
// no PNG signature or do not go on with a header chunk of 13 bytes. The pixels are not looked at.
std::optional<PixelSize> readPngSize(std::span<const std::uint8_t> bytes);

}  // namespace ravelin
