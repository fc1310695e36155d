#include "app/run_modes.h"

namespace ravelin {

// No panel can be torn off yet, so there is none to show.
int runChildPanel(const std::string& /*rawCommandLine*/) {
    return 0;
}

}  // namespace ravelin
