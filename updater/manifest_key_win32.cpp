#include <windows.h>

#include <memory>

#include "support/win32_handles.h"
#include "updater/hash.h"
#include "updater/manifest_key.h"
#include "updater/signature.h"

namespace ravelin {

namespace {

// A key goes before the provider that it came from.
struct PublicKey {
    CryptAlgorithm algorithm;
    CryptKey key;
};

// The functions take pointers to what they only read.
PUCHAR readOnly(std::string_view bytes) {
    return reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
}

}  // namespace

ManifestVerifier importManifestKey(std::string_view blob) {
    const auto imported = std::make_shared<PublicKey>();
    if (BCryptOpenAlgorithmProvider(imported->algorithm.put(), BCRYPT_ECDSA_P256_ALGORITHM, nullptr,
                                    0) != 0)
        return {};
    if (BCryptImportKeyPair(imported->algorithm.get(), nullptr, BCRYPT_ECCPUBLIC_BLOB,
                            imported->key.put(), readOnly(blob), static_cast<ULONG>(blob.size()),
                            0) != 0)
        return {};
    return makeManifestVerifier(
        Sha256, [imported](std::string_view digest, std::string_view signature) {
            return BCryptVerifySignature(imported->key.get(), nullptr, readOnly(digest),
                                         static_cast<ULONG>(digest.size()), readOnly(signature),
                                         static_cast<ULONG>(signature.size()), 0) == 0;
        });
}

const ManifestVerifier& productVerifier() {
    // Never released: the end of the process may find a check under way.
    static const auto* const verifier = new ManifestVerifier(importManifestKey(productKeyBlob()));
    return *verifier;
}

}  // namespace ravelin
