// The signed manifest that offers an update, and the rules by which it is accepted.
#pragma once

#include <functional>
#include <string>

namespace ravelin {

// An accepted manifest, its texts exactly as they were signed.
struct UpdateManifestInfo {
    std::string tier;
    std::string version;
    std::string url;
    std::string sha256;  // of the installer: 64 lower-case hexadecimal digits
    std::string sig;     // hexadecimal
    bool operator==(const UpdateManifestInfo&) const = default;
};

// Whether `sigHex` is a signature over `message` by the key that counts.
using ManifestVerifier = std::function<bool(const std::string& message, const std::string& sigHex)>;

// The line that the signature covers.
std::string signedMessage(const UpdateManifestInfo& manifest);

// Judges a manifest for a build of this tier and version. `out` is written only when the result is
// true; why a manifest is refused is nobody's business.
bool EvaluateManifest(const ManifestVerifier& verifier, const std::string& manifestText,
                      const std::string& expectedTier, const std::string& ownVersion,
                      UpdateManifestInfo& out);

}  // namespace ravelin
