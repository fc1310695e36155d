// What the main process does with a message of a child panel.
#pragma once

#include <string_view>

namespace ravelin {

// Does what the main window's method of the same name does; "panelHover" exists here only. A
// message without a separator, an unknown method and a value that cannot be converted are passed
// over. Nothing escapes. On the pipe thread.
void dispatchPipeMessage(std::string_view bytes) noexcept;

}  // namespace ravelin
