// Deleting a folder with everything in it. For the Windows half only.
#pragma once

#include <string>

namespace ravelin {

// Removes the folder with all that it contains. A link is removed itself and never followed, not
// even when it is put in place of a folder meanwhile: this may run with more rights than whoever
// owns the folder. Returns whether nothing of it is left.
bool removeFolder(const std::wstring& folder);

}  // namespace ravelin
