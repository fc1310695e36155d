// Where the output of a console run goes.
#pragma once

namespace ravelin {

// Keeps a usable standard output (a file or pipe the caller redirected to); otherwise attaches to
// the parent process's console and prints there. Without either the output is lost.
void attachConsole();

}  // namespace ravelin
