#include "updater/update_check.h"

#include <fstream>
#include <string_view>
#include <utility>

#include "product.h"

namespace ravelin {

namespace {

// Written once at start-up, before the threads that read it exist.
std::string manifestOverride;

std::string vendorManifestUrl() {
    return std::string("https://") + product::webHost + "/update/" + product::tier + ".json";
}

bool isAddress(std::string_view source) {
    return source.starts_with("https://") || source.starts_with("http://");
}

// At most one byte more than a manifest may have, which is enough to refuse the file.
bool readFile(const std::string& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    text.resize(manifestCap + 1);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return true;
}

bool readManifest(const SmallDocumentGet& get, std::string& text) {
    if (manifestOverride.empty()) return get(vendorManifestUrl(), text);
    if (isAddress(manifestOverride)) return get(manifestOverride, text);
    return readFile(manifestOverride, text);
}

}  // namespace

void setUpdateManifestSource(std::optional<std::string> source) {
    manifestOverride = std::move(source).value_or(std::string());
}

UpdateCheckResult checkForUpdate(const SmallDocumentGet& get, const ManifestVerifier& verifier) {
    UpdateCheckResult result;
    result.ownVersion = product::version;
    std::string text;
    if (!readManifest(get, text)) return result;
    if (text.empty() || text.size() > manifestCap) return result;
    if (!verifier) return result;
    result.available =
        EvaluateManifest(verifier, text, product::tier, product::version, result.manifest);
    return result;
}

}  // namespace ravelin
