// Housekeeping at start: files that older versions left beside the executable or under another
// name. Failures are ignored; the next start tries again.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// Brings the session file of an older version to its place in the data folder and sets
// `sessionPath`. Called before anything else touches the data folder. When the old file cannot be
// moved, it stays the session file for this run.
void migrateSessionFiles();
// The same for given folders: the path of the session file.
std::string migratedSessionPath(const std::string& dataFolder, const std::string& programFolder);

// Moves a file from beside the executable to `newPath`, unless something exists there.
void migrateLegacyFile(const std::string& newPath, std::string_view name);
void migrateLegacyFile(const std::string& newPath, std::string_view name,
                       const std::string& programFolder);

// Deletes a file beside the executable.
void deleteLegacyFile(std::string_view name);
void deleteLegacyFile(std::string_view name, const std::string& programFolder);

}  // namespace ravelin
