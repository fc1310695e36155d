// Readers for the arguments of page methods that carry more than one value.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace ravelin {

struct WindowSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// Two integers, as an array of two values or one text with a comma; nothing when a value is missing
// or is not a number.
std::optional<WindowSize> readSizeArgument(std::string_view args);

}  // namespace ravelin
