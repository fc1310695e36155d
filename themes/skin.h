// The skin of a theme: PNG images for the page's widgets and an embedded font.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ravelin {

inline constexpr std::size_t skinPieceCap = 1'048'576;  // decoded bytes
inline constexpr std::size_t skinFontMinimum = 1'024;   // decoded bytes
inline constexpr std::size_t skinFontCap = 2'097'152;   // decoded bytes

// What a skin brings.
struct SkinSummary {
    std::int32_t pieces = 0;
    bool font = false;
};

// Checks the text of a theme's "skin" value and fills the summary. Gives what is wrong, or an empty
// text. A skin whose "template" is not 1 brings nothing and is not looked at.
std::string checkSkin(std::string_view skinText, SkinSummary& summary);

}  // namespace ravelin
