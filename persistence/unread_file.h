// A file of the user's that could not be used at the start.
#pragma once

#include <string>

namespace ravelin {

// Keeps such a file from being lost: it is copied aside before the program first writes over it.
// The file itself stays where it is, for other programs and for a later version of this one.
//
// Guarded by whoever writes the file.
class UnreadFile {
  public:
    // The file at `path` was there but could not be used; it is to be copied to `copy`. Nothing is
    // noted of a file that is missing or empty.
    void note(const std::string& path, const std::string& copy);
    // Copies what was noted, once. Returns whether the file may be written over: false when the
    // copy could not be made, to be tried again before the next save.
    bool keepCopy();

  private:
    std::string path_;  // empty: nothing is to be kept
    std::string copy_;
};

}  // namespace ravelin
