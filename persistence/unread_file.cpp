#include "persistence/unread_file.h"

#include "support/file_system.h"

namespace ravelin {

void UnreadFile::note(const std::string& path, const std::string& copy) {
    const auto stamp = fileStamp(path);
    if (!stamp || stamp->length == 0) return;
    path_ = path;
    copy_ = copy;
}

bool UnreadFile::keepCopy() {
    if (!path_.empty() && fileExists(path_) && !copyFile(path_, copy_)) return false;
    path_.clear();
    return true;
}

}  // namespace ravelin
