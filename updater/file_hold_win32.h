// Handles that keep files and folders as they are while something is decided about them. For the
// Windows half only.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "support/win32_handles.h"

namespace ravelin {

// Opens the folder so that nobody can rename it, delete it or put another in its place. Gives no
// handle when it cannot be opened so, or is a link to somewhere else or no folder at all.
FileHandle holdFolder(const std::wstring& folder);

// Opens the file for reading so that others can do nothing but read it, and holds its folder with
// it. Null when either cannot be opened so or is a link to somewhere else. What is returned holds
// both until its last copy is gone.
std::shared_ptr<void> holdFile(const std::wstring& path);

}  // namespace ravelin
