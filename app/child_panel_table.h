// The table behind child_panels.h. For the Windows half only.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "support/win32_handles.h"

namespace ravelin {

// Guarded by profileMutex.
using ChildPanelTable = std::map<std::string, ProcessHandle, std::less<>>;
ChildPanelTable& childPanelTable();

}  // namespace ravelin
