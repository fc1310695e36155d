// The engine's state as the page polls it.
#pragma once

#include <string>
#include <vector>

namespace ravelin {

// One JSON object without blanks. `restore` names the panels whose process has ended. From any
// thread; its values may be of slightly different moments.
std::string getTrackerStatus(const std::vector<std::string>& restore);

}  // namespace ravelin
