#include "updater/manifest_key.h"
#include "updater/self_test.h"

namespace ravelin {

bool RunUpdateSelfTest(const std::string& vectorsPath, std::string& report) {
    return runUpdateSelfTest(vectorsPath, importManifestKey, report);
}

}  // namespace ravelin
