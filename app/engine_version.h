// The versions of browser engines by the folders that they are installed in.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// The version that the folder's name is, as in "C:\Engines\120.0.2210.91"; empty when the name is
// no version, or one that is too old for the view library. Such an engine counts as none.
std::string engineVersionOf(std::string_view folder);

}  // namespace ravelin
