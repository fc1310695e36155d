// The way of worker threads to the page.
#pragma once

#include <functional>
#include <string>

namespace ravelin {

// Installs the callable that runs a script in the main page on the user-interface thread, or takes
// it away again with an empty one. Any thread.
void setPageScriptSink(std::function<void(const std::string& script)> sink);

// Hands the script to the sink; without one the notice is dropped. Any thread.
void runPageScript(const std::string& script);

}  // namespace ravelin
