// Removes download folders that an update left behind when it was cut short.
#pragma once

#include <cstdint>

namespace ravelin {

// By the file attributes of Windows: a folder or a file that is no link to somewhere else.
bool isRealFolder(std::uint32_t attributes);
bool isRealFile(std::uint32_t attributes);

// Deletes the files of every update folder in the temporary folder that belongs to the
// Administrators group, and the folder. Folders of anyone else, sub-folders and links are never
// touched; no error is reported. For the start of the program.
void SweepStaleUpdateFolders();

}  // namespace ravelin
