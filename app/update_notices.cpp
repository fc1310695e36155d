#include "app/update_notices.h"

#include "support/text.h"

namespace ravelin {

std::string updateAvailableScript(const UpdateCheckResult& result) {
    return "if (window.onUpdateAvailable) window.onUpdateAvailable(" +
           jsonQuote(result.manifest.version) + ',' + jsonQuote(result.ownVersion) + ");";
}

std::string updateProgressScript(std::uint64_t bytesDone, std::uint64_t bytesTotal) {
    return "if (window.onUpdateProgress) onUpdateProgress(" + std::to_string(bytesDone) + ',' +
           std::to_string(bytesTotal) + ");";
}

std::string updateInstallingScript() {
    return "if (window.onUpdateInstalling) onUpdateInstalling();";
}

}  // namespace ravelin
