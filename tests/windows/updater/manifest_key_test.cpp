#include "updater/manifest_key.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "support/win32_handles.h"
#include "tests/support/temp_folder.h"
#include "updater/hash.h"
#include "updater/hex.h"
#include "updater/self_test.h"
#include "updater/signature.h"

namespace ravelin {
namespace {

PUCHAR bytesOf(std::string& text) {
    return reinterpret_cast<PUCHAR>(text.data());
}

// A key pair that lives for one test.
class SigningKey {
  public:
    SigningKey() {
        BCryptOpenAlgorithmProvider(algorithm_.put(), BCRYPT_ECDSA_P256_ALGORITHM, nullptr, 0);
        BCryptGenerateKeyPair(algorithm_.get(), key_.put(), 256, 0);
        BCryptFinalizeKeyPair(key_.get(), 0);
    }

    std::string publicBlob() const {
        std::string blob(72, '\0');
        ULONG size = 0;
        BCryptExportKey(key_.get(), nullptr, BCRYPT_ECCPUBLIC_BLOB, bytesOf(blob), 72, &size, 0);
        return blob;
    }

    std::string sign(const std::string& message) const {
        std::string digest = Sha256(message);
        std::string signature(64, '\0');
        ULONG size = 0;
        BCryptSignHash(key_.get(), nullptr, bytesOf(digest), 32, bytesOf(signature), 64, &size, 0);
        return encodeHex(signature);
    }

  private:
    CryptAlgorithm algorithm_;
    CryptKey key_;
};

std::string upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

TEST(ManifestKey, AcceptsTheSignaturesOfItsKey) {
    const SigningKey key;
    const ManifestVerifier verifier = importManifestKey(key.publicBlob());
    ASSERT_TRUE(verifier);
    const std::string signature = key.sign("message");
    EXPECT_TRUE(verifier("message", signature));
    EXPECT_TRUE(verifier("message", upper(signature)));
}

TEST(ManifestKey, RefusesEverythingElse) {
    const SigningKey key;
    const SigningKey other;
    const ManifestVerifier verifier = importManifestKey(key.publicBlob());
    ASSERT_TRUE(verifier);
    const std::string signature = key.sign("message");
    EXPECT_FALSE(verifier("massage", signature));
    EXPECT_FALSE(verifier("message ", signature));
    EXPECT_FALSE(verifier("message", other.sign("message")));
    EXPECT_FALSE(verifier("message", signature + "00"));
    EXPECT_FALSE(verifier("message", signature.substr(2)));
    EXPECT_FALSE(verifier("message", std::string(128, '0')));
    EXPECT_FALSE(verifier("message", std::string(128, 'f')));
    EXPECT_FALSE(verifier("message", ""));
    for (const std::size_t at : {0U, 63U, 64U, 127U}) {
        std::string changed = signature;
        changed[at] = changed[at] == '0' ? '1' : '0';
        EXPECT_FALSE(verifier("message", changed)) << at;
    }
}

TEST(ManifestKey, AChangedCharacterOfAnySignedFieldIsRefused) {
    const SigningKey key;
    const ManifestVerifier verifier = importManifestKey(key.publicBlob());
    const UpdateManifestInfo m{"home", "1.0.2", "https://ravelin.example/a.exe",
                               std::string(64, 'a'), ""};
    const std::string line = signedMessage(m);
    const std::string signature = key.sign(line);
    for (std::size_t at = 0; at < line.size(); ++at) {
        std::string changed = line;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        EXPECT_FALSE(verifier(changed, signature)) << changed;
    }
    EXPECT_TRUE(verifier(line, signature));
}

TEST(ManifestKey, ACopyKeepsTheKeyAlive) {
    const SigningKey key;
    ManifestVerifier copy;
    {
        const ManifestVerifier verifier = importManifestKey(key.publicBlob());
        copy = verifier;
    }
    EXPECT_TRUE(copy("message", key.sign("message")));
}

TEST(ManifestKey, WhatIsNoKeyDoesNotImport) {
    const std::string good = SigningKey().publicBlob();
    EXPECT_TRUE(importManifestKey(good));
    EXPECT_FALSE(importManifestKey(""));
    EXPECT_FALSE(importManifestKey("ECS1"));
    EXPECT_FALSE(importManifestKey(good.substr(0, 71)));
    EXPECT_FALSE(importManifestKey("ECS3" + good.substr(4)));
    EXPECT_FALSE(importManifestKey("ECS1" + std::string("\x30\0\0\0", 4) + good.substr(8)));
}

TEST(ManifestKey, TheBuildsOwnKeyImportsOnce) {
    EXPECT_TRUE(productVerifier());
    EXPECT_EQ(&productVerifier(), &productVerifier());
    EXPECT_FALSE(productVerifier()("message", SigningKey().sign("message")));
}

TEST(UpdateSelfTest, PassesWithTheSystemsCryptography) {
    const SigningKey key;
    const std::string digest(64, 'b');
    const UpdateManifestInfo m{"home", "1.0.2", "https://api.ravelin.example/a.exe", digest, ""};
    const std::string members = R"(,"expectedTier":"home","ownVersion":"1.0.1","tier":"home",)"
                                R"("version":"1.0.2","url":")" +
                                m.url + R"(","sha256":")" + digest + R"(","sig":")";
    const test::TempFolder folder;
    test::writeBytes(folder.file("vectors"),
                     R"({"line":"key","hex":")" + encodeHex(key.publicBlob()) + "\"}\n" +
                         R"({"line":"case","name":"signed","expect":true)" + members +
                         key.sign(signedMessage(m)) + "\"}\n" +
                         R"({"line":"case","name":"forged","expect":false)" + members +
                         SigningKey().sign(signedMessage(m)) + "\"}\n" +
                         R"({"line":"key","hex":"454353310000"})");
    std::string report;
    EXPECT_FALSE(RunUpdateSelfTest(folder.file("vectors"), report));
    EXPECT_EQ(report.substr(0, report.find("PASS host")),
              "PASS test key loads as a valid P-256 public key\n"
              "PASS signed\n"
              "PASS forged\n"
              "FAIL test key loads as a valid P-256 public key\n");
}

}  // namespace
}  // namespace ravelin
