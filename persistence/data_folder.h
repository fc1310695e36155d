// Where the program's files lie: the user's data folder, and the folder of the executable that
// older versions wrote to.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// "Ravelin" under the user's local application data; under the current folder when that is unknown
// or its path too long.
std::string dataFolder();

// The path of a file in the data folder. Creates the folder first; that it could not be created
// shows when the file is opened.
std::string dataFile(std::string_view name);

// Without a separator at its end. The current folder when the executable cannot be told.
std::string executableFolder();

}  // namespace ravelin
