// Theme texts: as they come, and as the skin and as the pieces of a theme that is good so far.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"
#include "themes/colour.h"

namespace {

using namespace ravelin;

constexpr std::array<std::string_view, 12> messages = {
    "file is empty",
    "invalid or missing name",
    "invalid or missing bgMain",
    "invalid or missing bgPanel",
    "invalid or missing bgHeader",
    "invalid or missing accent",
    "invalid or missing accentHover",
    "invalid or missing text",
    "invalid or missing font stack",
    "skin.pieces is not an object",
    "invalid base64 for skin.font",
    "invalid font magic bytes",
};
// A piece or font of more than the cap is longer than any text that is tried here.
constexpr std::array<std::string_view, 3> messagesWithName = {
    "unknown skin piece name: ", "invalid base64 for piece: ",
    "invalid or wrong-size PNG for piece: "};

void require(bool condition) {
    if (!condition) std::abort();
}

void check(std::string_view json) {
    const auto result = samples::check(json);
    const ThemeRecord& theme = result.theme;
    if (!result.valid) {
        require(std::ranges::count(messages, result.error) == 1 ||
                std::ranges::any_of(messagesWithName,
                                    [&](auto begin) { return result.error.starts_with(begin); }));
        require(theme.name.empty() && !theme.hasSkin && result.pieces == 0 && !result.font);
        return;
    }
    require(!theme.name.empty() && theme.name.size() <= themeNameCap);
    for (const auto* colour : {&theme.bgMain, &theme.bgPanel, &theme.bgHeader, &theme.accent,
                               &theme.accentHover, &theme.text})
        require(isValidColour(*colour));
    require(theme.font == samples::proportionalFonts || theme.font == samples::fixedPitchFonts);
    require(theme.hasSkin == (result.pieces > 0 || result.font));
    require(result.error.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check(text);
    check(samples::coloursOnly().set("format", "2").set("skin", text).json());
    check(samples::withSkin({{{"template", "1"}, {"pieces", text}}}));
    check(samples::withSkin({{{"template", "1"}, {"pieces", samples::jsonString(text)}}}));
    check(samples::withFont(samples::jsonString(text)));
    return 0;
}
