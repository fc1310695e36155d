// The titles by which the program's processes find each other's windows.
#pragma once

#include <string_view>

#include "product.h"

namespace ravelin {

inline constexpr std::string_view mainWindowTitle = product::windowTitle;
inline constexpr std::string_view panelTitlePrefix = "Ravelin - ";
inline constexpr std::string_view activationWindowTitle = "Ravelin - Activate";

// Whether a window so titled is the main window of some edition and version of the program: a
// second start hands over to a first one of another version too.
bool isMainWindowTitle(std::string_view title);

}  // namespace ravelin
