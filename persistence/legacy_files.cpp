#include "persistence/legacy_files.h"

#include "persistence/data_folder.h"
#include "persistence/session_file.h"
#include "support/file_system.h"

namespace ravelin {
namespace {

std::string inFolder(const std::string& folder, std::string_view name) {
    return folder + pathSeparator + std::string(name);
}

}  // namespace

std::string migratedSessionPath(const std::string& dataFolder, const std::string& programFolder) {
    std::string path = inFolder(dataFolder, "session.dat");
    if (fileExists(path)) return path;
    for (const auto& old :
         {inFolder(dataFolder, "session.rvnmacro"), inFolder(dataFolder, "session.mcr"),
          inFolder(programFolder, "session.mcr")}) {
        if (!fileExists(old)) continue;
        moveFile(old, path);
        return !fileExists(path) && fileExists(old) ? old : path;
    }
    return path;
}

void migrateSessionFiles() {
    // Creates the folder, which the file may be moved into.
    dataFile("session.dat");
    sessionPath = migratedSessionPath(dataFolder(), executableFolder());
}

void migrateLegacyFile(const std::string& newPath, std::string_view name,
                       const std::string& programFolder) {
    const std::string old = inFolder(programFolder, name);
    if (!fileExists(newPath) && fileExists(old)) moveFile(old, newPath);
}

void migrateLegacyFile(const std::string& newPath, std::string_view name) {
    migrateLegacyFile(newPath, name, executableFolder());
}

void deleteLegacyFile(std::string_view name, const std::string& programFolder) {
    deleteFile(inFolder(programFolder, name));
}

void deleteLegacyFile(std::string_view name) {
    deleteLegacyFile(name, executableFolder());
}

}  // namespace ravelin
