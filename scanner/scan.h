// The scan of a macro: which risky scenarios its key presses hold, and how it rates as a whole.
#pragma once

#include <string>
#include <vector>

#include "input/event_list.h"

namespace MacroScan {

// One finding; all but the time is copied from its scenario.
struct Match {
    std::string id;
    std::string severity;
    std::string title;
    std::string description;
    double atSec = 0.0;  // seconds on the macro's own time line
};

struct ScanResult {
    std::string level;           // "none", "caution" or "danger"
    std::vector<Match> matches;  // dangers first, each severity by ascending atSec, then by id
};

// Runs every scenario over the events, drops findings that another one makes redundant, and rates
// the rest. Keeps nothing between calls and may run on any thread; the caller keeps the list from
// changing meanwhile.
//
// Work: each event is looked at once, and each key press at most twice by each of the sixteen
// detectors, so a scan is linear in the length of the macro whatever its keys are.
ScanResult Scan(const ravelin::EventList& events);

}  // namespace MacroScan
