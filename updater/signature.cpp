#include "updater/signature.h"

#include <utility>

#include "update_key.h"
#include "updater/hex.h"

namespace ravelin {

namespace {

constexpr std::string_view magic = "ECS1";
constexpr std::string_view keyLength{"\x20\0\0\0", 4};
constexpr std::size_t coordinateBytes = 32;
constexpr std::size_t digestBytes = 32;
constexpr std::size_t signatureBytes = 64;

}  // namespace

std::string keyBlob(std::string_view x, std::string_view y) {
    return std::string(magic).append(keyLength).append(x).append(y);
}

std::string productKeyBlob() {
    const std::string point = decodeHex(product::updateKey);
    const std::string_view coordinates = point;
    return keyBlob(coordinates.substr(0, coordinateBytes), coordinates.substr(coordinateBytes));
}

bool hasKeyBlobMagic(std::string_view blob) {
    return blob.starts_with(magic);
}

ManifestVerifier makeManifestVerifier(Digester digest, DigestVerifier verify) {
    return [digest = std::move(digest), verify = std::move(verify)](const std::string& message,
                                                                    const std::string& sigHex) {
        const std::string signature = decodeHex(sigHex);
        if (signature.size() != signatureBytes) return false;
        const std::string hash = digest(message);
        return hash.size() == digestBytes && verify(hash, signature);
    };
}

}  // namespace ravelin
