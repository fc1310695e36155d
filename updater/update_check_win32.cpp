#include "updater/https_win32.h"
#include "updater/manifest_key.h"
#include "updater/update_check.h"

namespace ravelin {

UpdateCheckResult CheckForUpdate() {
    return checkForUpdate(HttpsGetSmall, productVerifier());
}

}  // namespace ravelin
