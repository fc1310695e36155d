// A light answer to "has anything changed?", for a page that asks many times a second.
#pragma once

#include <string>

namespace ravelin {

// Returns {"changes":N,...} as JSON: N moves whenever the status would read otherwise than at the
// call before, the number of events included; `panelsEnded` tells of what the engine does not know.
// With it come the rounds that the tools have done. Writes nothing and looks nothing up in the
// system. The user-interface thread alone.
std::string getActivity(bool panelsEnded);

}  // namespace ravelin
