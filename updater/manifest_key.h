// Public keys of update manifests, in the system's cryptography.
#pragma once

#include <string_view>

#include "updater/manifest.h"

namespace ravelin {

// A verifier with the P-256 key of this blob; empty when the blob does not import. The key lives as
// long as the verifier and its copies, which may be used on any thread.
ManifestVerifier importManifestKey(std::string_view blob);

// The verifier with the key of this build, imported at the first call and kept for the life of the
// process. Empty when that failed. Any thread.
const ManifestVerifier& productVerifier();

}  // namespace ravelin
