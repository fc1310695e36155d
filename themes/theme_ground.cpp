#include "themes/theme_ground.h"

#include <algorithm>
#include <optional>

namespace ravelin {
namespace {

struct Ground {
    std::string_view key;
    std::uint32_t colour;
};

// As in the page's styles; the first one is the default.
constexpr Ground grounds[] = {
    {"ravelin", 0x0f1319},
    {"daylight", 0xe9edf1},
    {"contrast", 0x000000},
};

const Ground* find(std::string_view key) {
    const auto* const found = std::ranges::find(grounds, key, &Ground::key);
    return found != std::ranges::end(grounds) ? found : nullptr;
}

struct Choice {
    int number;
    std::string_view key;
};

std::optional<Choice> readChoice(std::string_view note) {
    constexpr std::string_view start = "theme:";
    constexpr std::size_t mostDigits = 9;
    if (!note.starts_with(start)) return std::nullopt;
    note.remove_prefix(start.size());
    const auto digits = std::min(note.find_first_not_of("0123456789"), note.size());
    if (digits == 0 || digits > mostDigits || digits == note.size() || note[digits] != ':')
        return std::nullopt;
    return Choice{std::stoi(std::string(note.substr(0, digits))), note.substr(digits + 1)};
}

}  // namespace

std::uint32_t groundOfTheme(std::string_view key) {
    const Ground* const ground = find(key);
    return ground != nullptr ? ground->colour : grounds[0].colour;
}

std::string chosenTheme(const std::set<std::string>& seenWarnings) {
    Choice latest{-1, {}};
    for (const std::string& note : seenWarnings) {
        const auto choice = readChoice(note);
        if (choice && choice->number > latest.number && find(choice->key) != nullptr)
            latest = *choice;
    }
    return std::string(latest.key);
}

}  // namespace ravelin
