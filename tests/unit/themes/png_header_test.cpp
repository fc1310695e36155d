#include "themes/png_header.h"

#include <gtest/gtest.h>

#include "tests/unit/themes/sample_png.h"

namespace ravelin {
namespace {

using samples::png;

TEST(PngHeader, GivesTheSizeOfAnImage) {
    EXPECT_EQ(readPngSize(png(192, 64)), (PixelSize{192, 64}));
    EXPECT_EQ(readPngSize(png(1024, 768)), (PixelSize{1024, 768}));
}

TEST(PngHeader, ReadsAllFourBytesOfEachNumber) {
    auto bytes = png(1, 1);
    for (std::size_t i = 0; i < 8; ++i)
        bytes[16 + i] = static_cast<std::uint8_t>(0x81 + 0x11 * i);
    EXPECT_EQ(readPngSize(bytes), (PixelSize{0x8192A3B4U, 0xC5D6E7F8U}));
}

TEST(PngHeader, Needs24BytesAndNoMore) {
    auto bytes = png(28, 28);
    bytes.resize(24);
    EXPECT_EQ(readPngSize(bytes), (PixelSize{28, 28}));
    while (!bytes.empty()) {
        bytes.pop_back();
        EXPECT_FALSE(readPngSize(bytes)) << bytes.size() << " bytes";
    }
}

TEST(PngHeader, NeedsEveryByteOfSignatureChunkLengthAndType) {
    for (std::size_t i = 0; i < 16; ++i)
        for (const int bit : {0, 5, 7}) {
            auto bytes = png(28, 28);
            bytes[i] ^= static_cast<std::uint8_t>(1 << bit);
            EXPECT_FALSE(readPngSize(bytes)) << "byte " << i;
        }
}

}  // namespace
}  // namespace ravelin
