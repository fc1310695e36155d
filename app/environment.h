// What the page is told about the program's surroundings.
#pragma once

#include <string>

namespace ravelin {

// Returns the counters of what went wrong without ending anything, as one JSON object. Any thread.
std::string getEnvironment();

}  // namespace ravelin
