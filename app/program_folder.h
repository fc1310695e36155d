// Where the program was started from.
#pragma once

#include <filesystem>

namespace ravelin {

// The folder of the executable; the current folder when that cannot be told.
std::filesystem::path programFolder();

}  // namespace ravelin
