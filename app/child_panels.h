// The child processes that show torn-off panels, by panel id.
#pragma once

#include <string>
#include <vector>

namespace ravelin {

// Forgets every child whose process has ended and returns their panel ids, so that the page shows
// those panels again; each is reported once. When there is one, the panel-hover state is cleared.
// Takes profileMutex, which guards the table.
std::vector<std::string> collectEndedPanels();

// Ends every child process with exit code 0 and empties the table.
void endAllChildPanels();

}  // namespace ravelin
