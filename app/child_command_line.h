// What the command line tells a child process about the panel that it shows: five fields behind
// "--child ", separated by "|".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "input/platform.h"
#include "themes/theme_key.h"

namespace ravelin {

struct ChildFields {
    std::string title = "Panel";
    std::string panelId;
    // Where on the screen the panel was torn off.
    std::optional<platform::Point> tornOffAt;
    std::string themeKey = defaultThemeKey;
    bool operator==(const ChildFields&) const = default;
};

// Missing fields keep their defaults; a place counts only when both of its numbers make sense.
ChildFields readChildFields(std::string_view rawCommandLine);

// The arguments of a child process, such that readChildFields gives the fields back. What would
// end a field, or make another argument of a part of one, is left out of title and theme key.
std::string childArguments(const ChildFields& fields);

// The top-left corner of the window that puts its header under the place where it was torn off.
platform::Point windowCorner(platform::Point tornOffAt);

}  // namespace ravelin
