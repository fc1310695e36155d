// What makes a window of one panel out of the page.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// A script element and the end of the body behind it: applies the theme, shows the panel alone,
// makes its header drag the window, and fits the window to the panel. The page becomes visible
// only then, so that neither the default theme nor another panel ever flashes.
std::string panelScript(std::string_view panelId, std::string_view themeKey);

// Puts the script where the last end of the body stands; a page without one stays as it is.
std::string withPanelScript(std::string page, std::string_view panelId, std::string_view themeKey);

}  // namespace ravelin
