#include "updater/hex.h"

#include <gtest/gtest.h>

#include <string>

namespace ravelin {
namespace {

TEST(Hex, WritesTwoLowerCaseDigitsAByte) {
    EXPECT_EQ(encodeHex(std::string("\x00\x09\x0A\x7F\x80\xFF", 6)), "00090a7f80ff");
    EXPECT_EQ(encodeHex(""), "");
}

TEST(Hex, ReadsDigitsOfEitherCase) {
    EXPECT_EQ(decodeHex("00090a7F80fF"), std::string("\x00\x09\x0A\x7F\x80\xFF", 6));
    EXPECT_EQ(decodeHex(""), "");
}

TEST(Hex, AnOddLengthOrAnotherCharacterGivesNothing) {
    for (const std::string text :
         {"0", "abc", "0g", "g0", "0x10", " 0a", "0a ", "0a-b", "/0", ":0", "@0", "`0", "\xFF\xFF"})
        EXPECT_EQ(decodeHex(text), "") << text;
}

TEST(Hex, EveryByteComesBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    EXPECT_EQ(decodeHex(encodeHex(bytes)), bytes);
}

}  // namespace
}  // namespace ravelin
