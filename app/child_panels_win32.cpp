#include <mutex>

#include "app/child_panel_table.h"
#include "app/child_panels.h"
#include "input/engine_state.h"
#include "persistence/profiles.h"

namespace ravelin {

ChildPanelTable& childPanelTable() {
    static ChildPanelTable table;
    return table;
}

std::vector<std::string> collectEndedPanels() {
    std::vector<std::string> ended;
    const std::lock_guard lock(profileMutex);
    std::erase_if(childPanelTable(), [&](const auto& entry) {
        DWORD exitCode = STILL_ACTIVE;
        if (!GetExitCodeProcess(entry.second.get(), &exitCode) || exitCode == STILL_ACTIVE)
            return false;
        ended.push_back(entry.first);
        return true;
    });
    if (!ended.empty()) engine.panelHover.exchange(false);
    return ended;
}

void endAllChildPanels() {
    const std::lock_guard lock(profileMutex);
    for (const auto& [id, process] : childPanelTable())
        TerminateProcess(process.get(), 0);
    childPanelTable().clear();
}

}  // namespace ravelin
