#include "app/status_file.h"

#include <fstream>

#include "persistence/data_folder.h"

namespace ravelin {

void writeStatusFile(const std::string& status) {
    std::ofstream(dataFile("status.txt"), std::ios::trunc) << status;
}

}  // namespace ravelin
