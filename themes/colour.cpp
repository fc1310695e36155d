#include "themes/colour.h"

#include <algorithm>

namespace ravelin {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isHexColour(std::string_view text) {
    return (text.size() == 4 || text.size() == 7) && text.front() == '#' &&
           std::all_of(text.begin() + 1, text.end(), isHexDigit);
}

bool isRgbPart(std::string_view part) {
    while (part.starts_with(' '))
        part.remove_prefix(1);
    while (part.ends_with(' '))
        part.remove_suffix(1);
    if (part.empty() || part.size() > 3 || !std::all_of(part.begin(), part.end(), isDigit))
        return false;
    int value = 0;
    for (const char digit : part)
        value = value * 10 + (digit - '0');
    return value <= 255;
}

bool isRgbColour(std::string_view text) {
    constexpr std::string_view opening = "rgb(";
    if (!text.starts_with(opening) || !text.ends_with(')')) return false;
    text.remove_prefix(opening.size());
    text.remove_suffix(1);
    const auto first = text.find(',');
    if (first == std::string_view::npos) return false;
    const auto second = text.find(',', first + 1);
    if (second == std::string_view::npos) return false;
    // A third comma ends up in the last part, which is then no number.
    return isRgbPart(text.substr(0, first)) &&
           isRgbPart(text.substr(first + 1, second - first - 1)) &&
           isRgbPart(text.substr(second + 1));
}

}  // namespace

bool isValidColour(std::string_view text) {
    return isHexColour(text) || isRgbColour(text);
}

}  // namespace ravelin
