// Looks for a newer build of this program.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "updater/manifest.h"

namespace ravelin {

struct UpdateCheckResult {
    bool available = false;
    UpdateManifestInfo manifest;  // filled when available
    std::string ownVersion;
};

inline constexpr std::size_t manifestCap = 16384;  // bytes

// Replaces the source of the manifest for this run: a text beginning "https://" or "http://" is
// fetched, any other is the path of a local file; none or an empty one means the vendor's host.
// Called at start-up, before any check.
void setUpdateManifestSource(std::optional<std::string> source);

// Fetches the small document behind a url; false when that fails.
using SmallDocumentGet = std::function<bool(const std::string& url, std::string& body)>;

// Fetches or reads the manifest and judges it for this build. Every failure means that no update is
// available; an empty verifier means that there is no key to trust.
UpdateCheckResult checkForUpdate(const SmallDocumentGet& get, const ManifestVerifier& verifier);

// The same over the network and with the key of this build. Blocks for as long as the network
// takes; any thread.
UpdateCheckResult CheckForUpdate();

}  // namespace ravelin
