// What the page is told about the program's surroundings.
#pragma once

#include <string>

namespace ravelin {

struct Environment {
    double scale = 1.0;           // of the page's window, 1 at 96 DPI
    bool buttonsSwapped = false;  // the user has exchanged the left and the right mouse button
    std::string themeKey;         // of the theme in use at the start
};

// Returns them as one JSON object, with the counters of what went wrong in this process without
// ending anything. Any thread.
std::string getEnvironment(const Environment& environment);

}  // namespace ravelin
