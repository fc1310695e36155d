#include "app/child_command_line.h"

#include <algorithm>
#include <array>
#include <limits>

#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

constexpr std::string_view fieldsFollow = "--child ";
constexpr std::int32_t cursorRight = 150;  // of the window's left edge
constexpr std::int32_t cursorBelow = 20;   // its top

std::optional<platform::Point> readPoint(std::string_view x, std::string_view y) {
    const auto left = toInt(x);
    const auto top = toInt(y);
    if (!left || !top) return std::nullopt;
    return platform::Point{left.value, top.value};
}

bool endsAField(char c) {
    return c == '|' || c == '"' || static_cast<unsigned char>(c) < ' ';
}

std::string cleaned(std::string_view text) {
    std::string clean;
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(clean), endsAField);
    // At the beginning of an argument it would be read as a switch.
    clean.erase(0, clean.find_first_not_of("- "));
    return clean;
}

std::int32_t lessBy(std::int32_t value, std::int32_t distance) {
    return std::max(value, std::numeric_limits<std::int32_t>::min() + distance) - distance;
}

}  // namespace

ChildFields readChildFields(std::string_view rawCommandLine) {
    ChildFields fields;
    const auto place = rawCommandLine.find(fieldsFollow);
    if (place == std::string_view::npos) return fields;
    std::string text(rawCommandLine.substr(place + fieldsFollow.size()));
    std::erase(text, '"');
    std::array<std::string_view, 5> places;
    const auto pieces = splitInto(places, text, '|');
    if (!pieces.empty()) fields.title = pieces[0];
    if (pieces.size() > 1) fields.panelId = pieces[1];
    if (pieces.size() > 3) fields.tornOffAt = readPoint(pieces[2], pieces[3]);
    if (pieces.size() > 4) fields.themeKey = pieces[4];
    return fields;
}

std::string childArguments(const ChildFields& fields) {
    std::string title = cleaned(fields.title);
    if (title.empty()) title = ChildFields().title;
    std::string theme = cleaned(fields.themeKey);
    if (theme.empty()) theme = ChildFields().themeKey;
    std::string x;
    std::string y;
    if (fields.tornOffAt) {
        x = std::to_string(fields.tornOffAt->x);
        y = std::to_string(fields.tornOffAt->y);
    }
    // One argument in quotes, so that no blank inside begins another one.
    std::string text(fieldsFollow);
    text += '"' + title + '|' + fields.panelId + '|' + x + '|' + y + '|' + theme + '"';
    return text;
}

platform::Point windowCorner(platform::Point tornOffAt) {
    return {lessBy(tornOffAt.x, cursorRight), lessBy(tornOffAt.y, cursorBelow)};
}

}  // namespace ravelin
