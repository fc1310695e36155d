// Screen frames of the browser as pixels.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace ravelin::browser {

// Rows from top to bottom, each pixel as blue, green, red and one unused byte.
struct Frame {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

// Decodes a PNG picture in base64; an empty frame when it is none. From any thread.
Frame decodeFrame(std::string_view base64);

}  // namespace ravelin::browser
