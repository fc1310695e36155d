// The colour on which a page of a theme is painted, for what is seen before the page.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace ravelin {

// Returns the colour as 0xRRGGBB; the default theme's for a key that the page does not know.
std::uint32_t groundOfTheme(std::string_view key);

// Returns the key of the theme that the user has chosen in the page, which notes its choices among
// the seen warnings as "theme:4:daylight" and counts them up; empty when there is none.
std::string chosenTheme(const std::set<std::string>& seenWarnings);

}  // namespace ravelin
