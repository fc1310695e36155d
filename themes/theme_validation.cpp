#include <algorithm>
#include <array>

#include "themes/colour.h"
#include "themes/json_object.h"
#include "themes/skin.h"
#include "themes/theme_file.h"

namespace ravelin {
namespace {

// The colours, in the order in which they are checked.
struct ColourField {
    std::string_view key;
    std::string ThemeRecord::*member;
};
constexpr std::array<ColourField, 6> colourFields = {{
    {"bgMain", &ThemeRecord::bgMain},
    {"bgPanel", &ThemeRecord::bgPanel},
    {"bgHeader", &ThemeRecord::bgHeader},
    {"accent", &ThemeRecord::accent},
    {"accentHover", &ThemeRecord::accentHover},
    {"text", &ThemeRecord::text},
}};

constexpr std::array<std::string_view, 2> fontStacks = {
    "'Segoe UI', Tahoma, Geneva, Verdana, sans-serif",
    "'Consolas', 'Courier New', monospace",
};

bool isValidName(std::string_view name) {
    return !name.empty() && name.size() <= themeNameCap && std::ranges::none_of(name, [](char c) {
        return static_cast<unsigned char>(c) < 32 || c == 127;
    });
}

// Fills the theme and the summary as far as the checks get. Gives what is wrong, or an empty text.
std::string checkTheme(std::string_view jsonText, ThemeRecord& theme, SkinSummary& summary) {
    if (jsonText.empty()) return "file is empty";
    if (jsonText.size() > themeFileCap) return "file exceeds the 12 MB cap";

    enum : std::size_t {
        name,
        firstColour,
        font = firstColour + colourFields.size(),
        format,
        skin
    };
    const auto values = lookUpJson<skin + 1>(
        jsonText,
        {"name", colourFields[0].key, colourFields[1].key, colourFields[2].key, colourFields[3].key,
         colourFields[4].key, colourFields[5].key, "font", "format", "skin"});

    if (!isValidName(values[name].view())) return "invalid or missing name";
    theme.name = values[name].view();
    for (std::size_t i = 0; i < colourFields.size(); ++i) {
        const auto colour = values[firstColour + i].view();
        if (!isValidColour(colour))
            return std::string("invalid or missing ").append(colourFields[i].key);
        theme.*colourFields[i].member = colour;
    }
    if (std::ranges::find(fontStacks, values[font].view()) == fontStacks.end())
        return "invalid or missing font stack";
    theme.font = values[font].view();

    if (values[format].view() != "2" || values[skin].view().empty()) return {};
    auto error = checkSkin(values[skin].view(), summary);
    theme.hasSkin = summary.pieces > 0 || summary.font;
    return error;
}

}  // namespace

bool validateTheme(std::string_view jsonText, ThemeRecord& out, std::string* error,
                   std::int32_t* pieceCount, bool* hasFont) {
    ThemeRecord theme;
    SkinSummary summary;
    std::string problem = checkTheme(jsonText, theme, summary);
    const bool valid = problem.empty();
    if (valid) {
        out = std::move(theme);
    } else {
        summary = {};
        if (error) *error = std::move(problem);
    }
    if (pieceCount) *pieceCount = summary.pieces;
    if (hasFont) *hasFont = summary.font;
    return valid;
}

}  // namespace ravelin
