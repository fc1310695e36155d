// A child panel's end of the pipe to the main process.
#pragma once

#include <string_view>

namespace ravelin {

// Sends one message over a connection of its own. Silent: without a main process, or when another
// executable owns the pipe, the message is dropped. Waits for the main process to read it, for at
// most a fifth of a second; one that stands still for longer gets it when it goes on.
void sendToMainProcess(std::string_view method, std::string_view value);

}  // namespace ravelin
