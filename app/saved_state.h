// What a child panel's process knows of the main process: the status and the settings as that last
// wrote them down. The files are read only, and may be met half written; what does not look whole
// is passed over and the last good text stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "support/file_system.h"
#include "support/line_reader.h"

namespace ravelin {

// Whether the text is a status as getTrackerStatus makes it, to its end.
bool isWholeStatus(std::string_view text);

// The settings line of a session and that of its current profile.
struct SavedLines {
    std::string session;
    std::string profile;  // empty when the profile has none, which stands for the defaults
    bool operator==(const SavedLines&) const = default;
};

// Nothing when one of the lines is missing, has too few fields, or holds something else than
// numbers. Reads no further than it must.
std::optional<SavedLines> readSavedLines(LineReader& lines);

class SavedStatus {
  public:
    explicit SavedStatus(std::string path) : path_(std::move(path)) {}
    // Empty before the first whole text.
    std::string read();

  private:
    std::string path_;
    std::string last_;
};

// The current profile's settings in the form of getSettings. Makes them this process's own, in
// which no tool runs.
class SavedSettings {
  public:
    explicit SavedSettings(std::string path) : path_(std::move(path)) {}
    // Empty before the first whole text.
    std::string read();

  private:
    std::string path_;
    std::optional<FileStamp> stamp_;  // of the file that `last_` was made of
    std::string last_;
};

}  // namespace ravelin
