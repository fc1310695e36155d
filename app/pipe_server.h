// The main process's end of the pipe through which child panels send what the user does.
#pragma once

namespace ravelin {

// The body of the pipe server's thread; returns when the program shuts down.
void runPipeServer();

}  // namespace ravelin
