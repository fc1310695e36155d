#include "updater/signature.h"

#include <gtest/gtest.h>

#include <string>

#include "update_key.h"
#include "updater/hex.h"

namespace ravelin {
namespace {

TEST(Signature, AKeyBlobIsMagicLengthAndCoordinates) {
    const std::string blob = keyBlob(std::string(32, 'x'), std::string(32, 'y'));
    EXPECT_EQ(blob.size(), 72U);
    EXPECT_EQ(blob,
              "ECS1" + std::string("\x20\0\0\0", 4) + std::string(32, 'x') + std::string(32, 'y'));
}

TEST(Signature, TheBuildsKeyIsItsConfiguredPoint) {
    const std::string blob = productKeyBlob();
    ASSERT_EQ(blob.size(), 72U);
    EXPECT_TRUE(hasKeyBlobMagic(blob));
    EXPECT_EQ(encodeHex(blob.substr(8)), product::updateKey);
}

TEST(Signature, OnlyTheMagicMakesAKeyBlob) {
    EXPECT_TRUE(hasKeyBlobMagic("ECS1"));
    for (const std::string bytes : {"", "ECS", "ECS2....", "ecs1....", "ECK1....", " ECS1"})
        EXPECT_FALSE(hasKeyBlobMagic(bytes)) << bytes;
}

// A verifier over primitives that say what they were asked.
struct Primitives {
    ManifestVerifier verifier() {
        return makeManifestVerifier(
            [this](std::string_view bytes) {
                hashed = bytes;
                return digest;
            },
            [this](std::string_view hash, std::string_view signature) {
                ++calls;
                EXPECT_EQ(hash, digest);
                checked = signature;
                return verdict;
            });
    }

    std::string digest = std::string(32, 'd');
    std::string hashed;
    std::string checked;
    int calls = 0;
    bool verdict = true;
};

TEST(Signature, TheMessagesDigestIsCheckedAgainstTheDecodedSignature) {
    Primitives primitives;
    EXPECT_TRUE(primitives.verifier()("the line", std::string(128, 'A')));
    EXPECT_EQ(primitives.hashed, "the line");
    EXPECT_EQ(primitives.checked, std::string(64, '\xAA'));
    primitives.verdict = false;
    EXPECT_FALSE(primitives.verifier()("the line", std::string(128, 'a')));
    EXPECT_EQ(primitives.calls, 2);
}

TEST(Signature, AnotherLengthNeverReachesTheSystem) {
    Primitives primitives;
    for (const std::size_t digits : {0U, 2U, 126U, 127U, 129U, 130U, 256U})
        EXPECT_FALSE(primitives.verifier()("m", std::string(digits, '1'))) << digits;
    EXPECT_FALSE(primitives.verifier()("m", std::string(127, '1') + 'g'));
    EXPECT_FALSE(primitives.verifier()("m", ' ' + std::string(127, '1')));
    EXPECT_EQ(primitives.calls, 0);
    EXPECT_EQ(primitives.hashed, "");
}

TEST(Signature, AFailedDigestIsNoSignature) {
    Primitives primitives;
    primitives.digest.clear();
    EXPECT_FALSE(primitives.verifier()("m", std::string(128, '1')));
    EXPECT_EQ(primitives.calls, 0);
}

}  // namespace
}  // namespace ravelin
