#include "updater/member_extractor.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace ravelin {
namespace {

std::string value(std::string_view text) {
    return stringMember(text, "key");
}

TEST(MemberExtractor, ReadsAStringMember) {
    EXPECT_EQ(value(R"({"key":"value"})"), "value");
    EXPECT_EQ(value(R"({ "other" : 1, "key" : "value", "last": [] })"), "value");
    EXPECT_EQ(value("{\"key\"\r\n\t:\r\n\t\"value\"}"), "value");
}

TEST(MemberExtractor, OrderAndOtherMembersDoNotMatter) {
    const std::string text = R"({"sig":"s","note":"n","url":"u"})";
    EXPECT_EQ(stringMember(text, "url"), "u");
    EXPECT_EQ(stringMember(text, "sig"), "s");
}

TEST(MemberExtractor, AMissingMemberIsEmpty) {
    EXPECT_EQ(value(""), "");
    EXPECT_EQ(value("{}"), "");
    EXPECT_EQ(value(R"({"keys":"value"})"), "");
    EXPECT_EQ(value(R"({"Key":"value"})"), "");
    EXPECT_EQ(value(R"({key:"value"})"), "");
}

TEST(MemberExtractor, AValueThatIsNotClosedIsEmpty) {
    EXPECT_EQ(value(R"({"key")"), "");
    EXPECT_EQ(value(R"({"key":)"), "");
    EXPECT_EQ(value(R"({"key":")"), "");
    EXPECT_EQ(value(R"({"key":"value)"), "");
    EXPECT_EQ(value(R"({"key":"value\")"), "");
    EXPECT_EQ(value(R"({"key":"value\)"), "");
}

TEST(MemberExtractor, TheFirstOfSeveralMembersCounts) {
    EXPECT_EQ(value(R"({"key":"first","key":"second"})"), "first");
}

TEST(MemberExtractor, TheKeyIsFoundEvenAsAValue) {
    // Its colon is then the next one in the text.
    EXPECT_EQ(value(R"({"note":"key","key":"value"})"), "value");
    EXPECT_EQ(value(R"({"note":"key","other":"value"})"), "value");
}

TEST(MemberExtractor, AValueThatIsNoStringTakesTheNextOne) {
    EXPECT_EQ(value(R"({"key":5,"other":"value"})"), "other");
    EXPECT_EQ(value(R"({"key":null})"), "");
}

TEST(MemberExtractor, ResolvesTheEscapesOfOneLetter) {
    EXPECT_EQ(value(R"({"key":"\"\\\/\b\f\n\r\t"})"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(value(R"({"key":"a\\"})"), "a\\");
    EXPECT_EQ(value(R"({"key":"a\\\"b"})"), "a\\\"b");
}

TEST(MemberExtractor, ResolvesUnicodeEscapesToUtf8) {
    EXPECT_EQ(value(R"({"key":"\u0041\u00e9\u20AC"})"), "A\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(value(R"({"key":"\ud83d\uDE00"})"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(value(R"({"key":"a\u0000b"})"), std::string("a\0b", 3));
    EXPECT_EQ(value(R"({"key":"\u0022"})"), "\"");
}

TEST(MemberExtractor, HalfASurrogatePairIsReplaced) {
    EXPECT_EQ(value(R"({"key":"\ud83d"})"), "\xEF\xBF\xBD");
    EXPECT_EQ(value(R"({"key":"\ude00x"})"), "\xEF\xBF\xBDx");
    EXPECT_EQ(value(R"({"key":"\ud83dA"})"),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(value(R"({"key":"\ud83d\u0041"})"),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(value(R"({"key":"\ud83d\ud83d\ude00"})"), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(MemberExtractor, WhatIsNoEscapeStandsAsItIs) {
    EXPECT_EQ(value(R"({"key":"\x\a"})"), R"(\x\a)");
    EXPECT_EQ(value(R"({"key":"\u12"})"), R"(\u12)");
    EXPECT_EQ(value(R"({"key":"\u12g4"})"), R"(\u12g4)");
    EXPECT_EQ(value(R"({"key":"\U0041"})"), R"(\U0041)");
}

TEST(MemberExtractor, BytesStandAsTheyAre) {
    EXPECT_EQ(value("{\"key\":\"\xC3\xA9\xFF\t\n\"}"), "\xC3\xA9\xFF\t\n");
}

bool flag(std::string_view text) {
    return booleanMember(text, "key");
}

TEST(MemberExtractor, ReadsABooleanMember) {
    EXPECT_TRUE(flag(R"({"key":true})"));
    EXPECT_TRUE(flag("{\"key\" : \t\r\n true}"));
    EXPECT_FALSE(flag(R"({"key":false})"));
}

TEST(MemberExtractor, EveryOtherBooleanIsFalse) {
    for (const std::string text :
         {"", "{}", R"({"key"})", R"({"key":)", R"({"key":  )", R"({"key":"true"})", R"({"key":1})",
          R"({"key":TRUE})", R"({"key":tru)", R"({"key":null,"other":true})", R"({"other":true})"})
        EXPECT_FALSE(flag(text)) << text;
}

}  // namespace
}  // namespace ravelin
