// An image header is believed exactly when writing it anew gives the same bytes.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "tests/unit/themes/sample_png.h"
#include "themes/png_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ravelin;
    const std::span<const std::uint8_t> bytes(data, size);
    samples::Bytes header = {137, 80, 78, 71, 13, 10, 26, 10, 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    if (const auto claimed = readPngSize(bytes)) {
        samples::appendBigEndian(header, claimed->width);
        samples::appendBigEndian(header, claimed->height);
        if (size < header.size() || !std::equal(header.begin(), header.end(), data)) std::abort();
    } else if (size >= pngHeaderSize && std::equal(header.begin(), header.end(), data)) {
        std::abort();
    }
    return 0;
}
