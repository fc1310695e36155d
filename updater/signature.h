// ECDSA P-256 signatures over update manifests, as far as they need no cryptography of the system.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "updater/manifest.h"

namespace ravelin {

// The 72 bytes of a P-256 public key as Windows takes them: the magic "ECS1", the key length 32 as
// a little-endian 32-bit number, X and Y, 32 bytes each.
std::string keyBlob(std::string_view x, std::string_view y);

// The blob of the key that this build trusts.
std::string productKeyBlob();

// Whether the bytes can be a key blob at all; the rest is up to the import.
bool hasKeyBlobMagic(std::string_view blob);

// Gives the SHA-256 digest of the bytes, 32 bytes, or the empty text.
using Digester = std::function<std::string(std::string_view bytes)>;
// Checks a signature, r then s in 64 bytes, against a digest.
using DigestVerifier = std::function<bool(std::string_view digest, std::string_view signature)>;

// A verifier of manifest texts out of the system's primitives. A signature that is no 64 bytes in
// hexadecimal is refused before either is called.
ManifestVerifier makeManifestVerifier(Digester digest, DigestVerifier verify);

}  // namespace ravelin
