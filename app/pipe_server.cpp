#include "app/pipe_server.h"

namespace ravelin {

// No panel can be torn off yet, so nobody sends anything.
void runPipeServer() {}

}  // namespace ravelin
