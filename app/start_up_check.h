// The check for an update that every start of the program makes once.
#pragma once

#include <functional>

#include "updater/update_check.h"

namespace ravelin {

// Waits until the start is well over, checks, and tells the page when there is an update; a page
// that is not there yet is not told. Returns within 100 ms of the shut-down's beginning while it
// waits; the check itself takes as long as it takes.
void checkAfterStart(const std::function<UpdateCheckResult()>& check);

}  // namespace ravelin
