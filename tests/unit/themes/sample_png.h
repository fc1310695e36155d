// Makes PNG images for tests: real ones, and headers without an image behind them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ravelin::samples {

using Bytes = std::vector<std::uint8_t>;

inline void append(Bytes& bytes, std::string_view text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

inline void appendBigEndian(Bytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

inline std::uint32_t crc32(const Bytes& bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? crc >> 1 ^ 0xEDB88320U : crc >> 1;
    }
    return ~crc;
}

inline void appendChunk(Bytes& png, std::string_view type, const Bytes& data) {
    appendBigEndian(png, static_cast<std::uint32_t>(data.size()));
    Bytes typed;
    append(typed, type);
    typed.insert(typed.end(), data.begin(), data.end());
    png.insert(png.end(), typed.begin(), typed.end());
    appendBigEndian(png, crc32(typed));
}

// A zlib stream of stored blocks.
inline Bytes stored(const Bytes& raw) {
    Bytes zlib = {0x78, 0x01};
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const std::uint8_t byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    constexpr std::size_t block = 65535;
    for (std::size_t at = 0; at < raw.size(); at += block) {
        const std::size_t size = std::min(block, raw.size() - at);
        zlib.push_back(at + size == raw.size() ? 1 : 0);
        for (const std::size_t length : {size, ~size}) {
            zlib.push_back(static_cast<std::uint8_t>(length));
            zlib.push_back(static_cast<std::uint8_t>(length >> 8));
        }
        const auto begin = raw.begin() + static_cast<std::ptrdiff_t>(at);
        zlib.insert(zlib.end(), begin, begin + static_cast<std::ptrdiff_t>(size));
    }
    appendBigEndian(zlib, b << 16 | a);
    return zlib;
}

// A black image with one bit a pixel.
inline Bytes png(std::uint32_t width, std::uint32_t height) {
    Bytes bytes = {137, 80, 78, 71, 13, 10, 26, 10};
    Bytes header;
    appendBigEndian(header, width);
    appendBigEndian(header, height);
    const Bytes format = {1, 0, 0, 0, 0};  // bit depth, grey, then the only methods there are
    header.insert(header.end(), format.begin(), format.end());
    appendChunk(bytes, "IHDR", header);
    const std::size_t rowBytes = 1 + (width + 7) / 8;  // filter type, then the pixels
    appendChunk(bytes, "IDAT", stored(Bytes(rowBytes * height)));
    appendChunk(bytes, "IEND", {});
    return bytes;
}

// The same with as many bytes behind it as make the given size.
inline Bytes pngOfBytes(std::uint32_t width, std::uint32_t height, std::size_t size) {
    Bytes bytes = png(width, height);
    bytes.resize(size);
    return bytes;
}

}  // namespace ravelin::samples
