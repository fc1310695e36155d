// Where the output of a console run goes.
#pragma once

#include <cstdio>

namespace ravelin {

// Returns the standard output where it is usable (a file or pipe the caller redirected to);
// otherwise attaches to the parent process's console and returns a stream that prints there.
// Without either, what is printed is lost. Never null.
std::FILE* consoleOutput();

}  // namespace ravelin
