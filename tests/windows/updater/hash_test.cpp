#include "updater/hash.h"

#include <gtest/gtest.h>

#include "support/utf.h"
#include "tests/support/temp_folder.h"
#include "updater/hex.h"
#include "updater/random_bytes.h"

namespace ravelin {
namespace {

constexpr char emptyDigest[] = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
constexpr char abcDigest[] = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr char millionDigest[] = "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";

TEST(Hash, GivesThePublishedDigests) {
    EXPECT_EQ(Sha256Hex(""), emptyDigest);
    EXPECT_EQ(Sha256Hex("abc"), abcDigest);
    EXPECT_EQ(Sha256Hex(std::string(1'000'000, 'a')), millionDigest);
    EXPECT_EQ(encodeHex(Sha256("abc")), abcDigest);
}

TEST(Hash, AFileHasTheDigestOfItsBytes) {
    const test::TempFolder folder;
    const std::string path = folder.file("file");
    // Around the chunks in which files are read, and bytes that text mode would change.
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
        std::string bytes(size, '\n');
        if (size > 1) bytes[size / 2] = '\x1A';
        test::writeBytes(path, bytes);
        EXPECT_EQ(FileSha256Hex(widen(path)), Sha256Hex(bytes)) << size;
    }
}

TEST(Hash, AFileThatCannotBeReadHasNone) {
    const test::TempFolder folder;
    EXPECT_EQ(FileSha256Hex(widen(folder.file("missing"))), "");
    EXPECT_EQ(FileSha256Hex(widen(folder.path())), "");
}

TEST(RandomBytes, AreAsManyAsAskedForAndNeverTheSame) {
    const std::string first = randomBytes(16);
    EXPECT_EQ(first.size(), 16U);
    EXPECT_NE(first, randomBytes(16));
    EXPECT_EQ(randomBytes(1000).size(), 1000U);
}

}  // namespace
}  // namespace ravelin
