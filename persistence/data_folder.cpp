#include "persistence/data_folder.h"

#include "support/file_system.h"

namespace ravelin {

std::string dataFolder() {
    const std::string base = environmentText("LOCALAPPDATA");
    return (base.empty() ? "." : base) + pathSeparator + "Ravelin";
}

std::string dataFile(std::string_view name) {
    std::string path = dataFolder();
    createFolder(path);
    path += pathSeparator;
    path += name;
    return path;
}

std::string executableFolder() {
    const std::string path = executablePath();
    const auto end = path.find_last_of("\\/");
    return end == std::string::npos ? "." : path.substr(0, end);
}

}  // namespace ravelin
