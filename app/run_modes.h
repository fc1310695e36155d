// The two kinds of run that show a window.
#pragma once

#include <string>

#include "app/command_line.h"
#include "app/process_setup.h"

namespace ravelin {

// The main process: takes the single-instance lock, starts the engine, shows the page until its
// window closes, then stops everything and leaves COM. Returns the exit code: 0, or 1 when the page
// could not be shown, or not any longer, which the user has been told. A second start brings the
// first one's window to the foreground and returns 0 at once.
int runNormally(const ComSession& com, const Switches& switches);

// One detached panel in a frameless window of its own; `rawCommandLine` names it. Returns the exit
// code: 1 when it could not be shown, or not any longer. The main window then has the panel again.
int runChildPanel(const std::string& rawCommandLine);

}  // namespace ravelin
