// The child processes that show torn-off panels, by panel id.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ravelin {

// Forgets every child whose process has ended and returns their panel ids, so that the page shows
// those panels again; each is reported once. When there is one, the panel-hover state is cleared.
// Takes profileMutex, which guards the table.
std::vector<std::string> collectEndedPanels();
// Whether the next call above will give any.
bool anyPanelEnded();

// Whether any panel is out, or has ended since the last collection.
bool anyPanelOut();
// Whether a process shows the panel, or has ended since the last collection.
bool isPanelOut(std::string_view panelId);

// Starts this executable with the arguments as the process that shows the panel; false when it
// cannot be started. It ends with this process at the latest. Takes profileMutex for the entry
// alone.
bool startChildPanel(const std::string& panelId, const std::string& arguments);

// Ends every child process with exit code 0 and empties the table.
void endAllChildPanels();

}  // namespace ravelin
