// The copy of the last status that the page asked for.
#pragma once

#include <string>

namespace ravelin {

// Replaces the contents of "status.txt" in the data folder. Silent when it cannot be opened.
void writeStatusFile(const std::string& status);

}  // namespace ravelin
