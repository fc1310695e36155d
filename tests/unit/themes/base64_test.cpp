#include "themes/base64.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/themes/sample_theme.h"

namespace ravelin {
namespace {

using samples::Bytes;

Bytes decodeAll(std::string_view text) {
    Bytes bytes(decodedBase64Size(text));
    EXPECT_EQ(decodeBase64(text, bytes).size(), bytes.size());
    return bytes;
}

TEST(Base64, DecodesThePublishedTestVectors) {
    const std::pair<const char*, std::string_view> vectors[] = {
        {"Zg==", "f"},        {"Zm8=", "fo"},        {"Zm9v", "foo"},
        {"Zm9vYg==", "foob"}, {"Zm9vYmE=", "fooba"}, {"Zm9vYmFy", "foobar"}};
    for (const auto& [text, plain] : vectors) {
        EXPECT_TRUE(isWellFormedBase64(text)) << text;
        EXPECT_EQ(decodeAll(text), Bytes(plain.begin(), plain.end())) << text;
    }
}

TEST(Base64, DecodesEveryByteValueAtEveryPlaceOfAGroup) {
    for (std::size_t lead = 0; lead < 3; ++lead) {
        Bytes bytes(lead, 0xA5);
        for (int value = 0; value < 256; ++value)
            bytes.push_back(static_cast<std::uint8_t>(value));
        const std::string text = samples::base64(bytes);
        ASSERT_TRUE(isWellFormedBase64(text));
        EXPECT_EQ(decodeAll(text), bytes);
    }
}

TEST(Base64, DecodesOnlyAsMuchAsFits) {
    const std::string text = samples::base64({10, 20, 30, 40, 50});
    for (std::size_t room = 0; room <= 7; ++room) {
        Bytes bytes(room, 99);
        const auto decoded = decodeBase64(text, bytes);
        Bytes expected{10, 20, 30, 40, 50};
        expected.resize(std::min<std::size_t>(room, 5));
        EXPECT_EQ(Bytes(decoded.begin(), decoded.end()), expected);
        for (std::size_t i = expected.size(); i < room; ++i)
            EXPECT_EQ(bytes[i], 99) << "wrote behind the end";
    }
}

TEST(Base64, AcceptsUnusedBitsBeforeThePadding) {
    EXPECT_TRUE(isWellFormedBase64("QR=="));
    EXPECT_EQ(decodeAll("QR=="), Bytes{'A'});
    EXPECT_TRUE(isWellFormedBase64("QUJ="));
    EXPECT_EQ(decodeAll("QUJ="), (Bytes{'A', 'B'}));
}

TEST(Base64, RejectsLengthsThatAreNoMultipleOfFour) {
    for (const char* text : {"", "Q", "QQ", "QQ=", "QUJDR", "QQ===", "QUJDRE", "QUJDREU"})
        EXPECT_FALSE(isWellFormedBase64(text)) << text;
}

TEST(Base64, RejectsPaddingThatIsTooLongOrNotAtTheEnd) {
    for (const char* text : {"A===", "====", "QUJDA===", "QUJD====", "QQ==QUJD", "=QQQ", "Q=QQ",
                             "QQ=Q", "==QQ", "QUI=QUI=", "QUJDQ=Q="})
        EXPECT_FALSE(isWellFormedBase64(text)) << text;
}

TEST(Base64, KnowsExactlyTheStandardAlphabet) {
    for (int value = 0; value < 256; ++value) {
        const char c = static_cast<char>(value);
        const bool known = samples::base64Alphabet.find(c) != std::string_view::npos;
        for (std::size_t place = 0; place < 3; ++place) {
            std::string text = "QUJD";
            text[place] = c;
            EXPECT_EQ(isWellFormedBase64(text), known) << value << " at " << place;
        }
        // Long texts are looked at many characters at a time.
        std::string text(400, 'Q');
        text[201] = c;
        EXPECT_EQ(isWellFormedBase64(text), known) << value;
    }
}

}  // namespace
}  // namespace ravelin
