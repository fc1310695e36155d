// The colour syntax of theme files.
#pragma once

#include <string_view>

namespace ravelin {

// True for "#" with three or six hexadecimal digits of either case, and for "rgb(R,G,B)" with three
// decimal parts of one to three digits up to 255, each with blanks around it if any. Nothing else
// is a colour here: no alpha, no other function, no name.
bool isValidColour(std::string_view text);

}  // namespace ravelin
