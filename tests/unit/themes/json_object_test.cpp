#include "themes/json_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ravelin {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::string valueOf(std::string_view objectText, std::string_view key) {
    return std::string(lookUpJson<1>(objectText, {key})[0].view());
}

TEST(JsonLookUp, UnescapesAString) {
    EXPECT_EQ(valueOf(R"({"k":"plain"})", "k"), "plain");
    EXPECT_EQ(valueOf(R"({"k":""})", "k"), "");
    EXPECT_EQ(valueOf(R"({"k":"\"\\\/\b\f\n\r\t"})", "k"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(valueOf(R"({"k":"a\u0041\u00e9\u20AC\ud83d\ude00z"})", "k"),
              "aA\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z");
    EXPECT_EQ(valueOf(R"({"k":"\u0000x"})", "k"), std::string("\0x", 2));
    EXPECT_EQ(valueOf(R"({"k":"\""})", "k"), "\"");
}

TEST(JsonLookUp, GivesAnyOtherValueAsItsRawText) {
    const std::string_view text =
        R"( { "n" : -1.50e+2 , "t":true,"f" :false, "z": null ,"a" : [1, "x]" ,{}] , "o":{ "n":7 , "q":"}" } } )";
    EXPECT_EQ(valueOf(text, "n"), "-1.50e+2");
    EXPECT_EQ(valueOf(text, "t"), "true");
    EXPECT_EQ(valueOf(text, "f"), "false");
    EXPECT_EQ(valueOf(text, "z"), "null");
    EXPECT_EQ(valueOf(text, "a"), R"([1, "x]" ,{}])");
    EXPECT_EQ(valueOf(text, "o"), R"({ "n":7 , "q":"}" })");
}

TEST(JsonLookUp, GivesAnEmptyTextForAMissingKey) {
    EXPECT_EQ(valueOf("{}", "k"), "");
    EXPECT_EQ(valueOf(R"({"kk":"1","K":"2","":"3"})", "k"), "");
}

TEST(JsonLookUp, TakesANumberOfAnySizeForItsText) {
    const std::string long1 = "1" + std::string(400, '0');
    for (const std::string& number :
         {std::string("1e999"), std::string("-1E+999"), std::string("1e-999"),
          std::string("0.1e99999999999999999999"), long1, "-" + long1, long1 + "." + long1,
          "0." + long1, std::string("18446744073709551616"), std::string("0"), std::string("-0"),
          std::string("0e0"), std::string("-0.0E-0"), std::string("10.01e+10")}) {
        EXPECT_EQ(valueOf("{\"l\":" + number + ",\"k\":\"v\"}", "k"), "v") << number;
        EXPECT_EQ(valueOf("{\"l\":[" + number + "," + number + "],\"k\":\"v\"}", "k"), "v");
        EXPECT_EQ(valueOf("{\"k\":" + number + "}", "k"), number);
        EXPECT_EQ(valueOf("{\"k\": " + number + " }", "k"), number);
    }
}

TEST(JsonLookUp, TakesEitherHalfOfASurrogatePairAloneForAReplacementCharacter) {
    for (const std::string half : {"\\ud83d", "\\uDBFF", "\\udc00", "\\uDFFF", "\\ud83d\\ud83d"}) {
        EXPECT_EQ(valueOf("{\"" + half + "\":1,\"k\":\"v\"}", "k"), "v") << half;
        EXPECT_EQ(valueOf("{\"l\":\"" + half + "x\",\"k\":\"v\"}", "k"), "v") << half;
    }
    EXPECT_EQ(valueOf(R"({"k":"\ud83dx\udc00"})", "k"), "\xEF\xBF\xBDx\xEF\xBF\xBD");
    EXPECT_EQ(valueOf(R"({"k":"\ud83d\n"})", "k"), "\xEF\xBF\xBD\n");
}

TEST(JsonLookUp, FindsKeysOfTheTopLevelOnly) {
    const std::string_view text = R"({"a":{"k":"inner"},"b":[{"k":"list"}],"c":"k","k":"outer"})";
    EXPECT_EQ(valueOf(text, "k"), "outer");
    EXPECT_EQ(valueOf(R"({"a":{"k":"inner"},"b":[{"k":"list"}]})", "k"), "");
    EXPECT_EQ(valueOf(R"([{"k":"list"}])", "k"), "");
}

TEST(JsonLookUp, TakesTheFirstOfARepeatedKey) {
    EXPECT_EQ(valueOf(R"({"k":"1","k":"2"})", "k"), "1");
    EXPECT_EQ(valueOf(R"({"k":"","k":"2"})", "k"), "");
}

TEST(JsonLookUp, ComparesUnescapedKeys) {
    EXPECT_EQ(valueOf(R"({"\u006bey\/":"1"})", "key/"), "1");
}

TEST(JsonLookUp, FindsSeveralKeysAtOnceInAnyOrder) {
    const auto [b, a, missing] = lookUpJson<3>(R"({"a":1,"b":"2"})", {"b", "a", "c"});
    EXPECT_EQ(b.view(), "2");
    EXPECT_EQ(a.view(), "1");
    EXPECT_EQ(missing.view(), "");
}

TEST(JsonLookUp, KeepsAnUnescapedTextWhenItIsMoved) {
    auto found = lookUpJson<1>(R"({"k":"a\/b"})", {"k"});
    const JsonText moved = std::move(found[0]);
    EXPECT_EQ(moved.view(), "a/b");
}

TEST(JsonLookUp, FindsNothingInATextThatIsNoObject) {
    for (const std::string_view text : {"",
                                        " ",
                                        "x",
                                        "null",
                                        "1",
                                        "\"k\"",
                                        "[]",
                                        "{",
                                        "}",
                                        "{\"k\":\"v\"",
                                        "{\"k\":\"v\",}",
                                        "{\"k\":\"v\"}}",
                                        "{\"k\":\"v\"} x",
                                        "{\"k\":\"v\"}{}",
                                        "{\"k\" \"v\"}",
                                        "{\"k\":}",
                                        "{k:\"v\"}",
                                        "{'k':'v'}",
                                        "{\"k\":\"v\"\"l\":1}",
                                        "{\"k\":\"v}",
                                        "{\"k\":\"v\",\"l\":01}",
                                        "{\"k\":\"v\",\"l\":tru}",
                                        "{\"k\":\"v\",\"l\":[1,]}",
                                        "{\"k\":\"v\",\"l\":[}]}",
                                        "{\"k\":\"v\",\"l\":\"\\x\"}",
                                        "{\"k\":\"v\",\"l\":\"\\u12g4\"}",
                                        "{\"k\":\"v\",\"l\":\"\t\"}",
                                        "{\"k\":\"v\",\"l\":NaN}",
                                        "{\"k\":\"v\",\"l\":1.}",
                                        "{\"k\":\"v\",\"l\":.5}",
                                        "{\"k\":\"v\",\"l\":1.5.5}",
                                        "{\"k\":\"v\",\"l\":1e}",
                                        "{\"k\":\"v\",\"l\":1e+}",
                                        "{\"k\":\"v\",\"l\":1e5e5}",
                                        "{\"k\":\"v\",\"l\":1e5.5}",
                                        "{\"k\":\"v\",\"l\":1-1}",
                                        "{\"k\":\"v\",\"l\":00}",
                                        "{\"k\":\"v\",\"l\":-}",
                                        "{\"k\":\"v\",\"l\":--1}",
                                        "{\"k\":\"v\",\"l\":+1}",
                                        "{\"k\":\"v\",\"l\":-01}",
                                        "{\"k\":\"v\",\"l\":1 1}",
                                        "{\"k\":\"v\",\"l\":0x10}",
                                        "{\"k\":\"v\",\"l\":1",
                                        "{\"k\":\"v\",\"l\":\"\\ud83\"}",
                                        "{\"k\":\"v\",\"l\":\"\\",
                                        "{\"k\":\"v\",/**/\"l\":1}",
                                        "\xEF\xBB\xBF{\"k\":\"v\"}"})
        EXPECT_EQ(valueOf(text, "k"), "") << text;
}

TEST(JsonLookUp, DoesNotTakeAZeroByteForTheEnd) {
    using std::string_literals::operator""s;
    for (const std::string& text : {"{\"k\":\"v\"}\0"s, "{\"k\":\"v\"}\0x"s, "{\"k\":\"v\"\0}"s,
                                    "{\"k\":\"v\0\"}"s, "\0{\"k\":\"v\"}"s})
        EXPECT_EQ(valueOf(text, "k"), "");
}

TEST(JsonLookUp, SeesEverySpecialCharacterOfALongString) {
    for (const std::size_t length : {1U, 63U, 64U, 65U, 127U, 128U, 129U, 200U})
        for (std::size_t at = 0; at < length; ++at) {
            std::string characters(length, '\xE9');
            characters[at] = '\x1F';
            EXPECT_EQ(valueOf("{\"k\":\"" + characters + "\"}", "k"), "");
            characters.replace(at, 1, "\\n");
            EXPECT_EQ(valueOf("{\"k\":\"" + characters + "\"}", "k").size(), length);
            characters.replace(at, 2, "\",\"");
            EXPECT_EQ(valueOf("{\"k\":\"" + characters + "\":1}", "k").size(), at);
        }
}

TEST(JsonLookUp, ReadsDeepNestingUpToItsCap) {
    const auto nested = [](std::size_t levels) {
        return "{\"deep\":" + std::string(levels, '[') + std::string(levels, ']') + ",\"k\":\"v\"}";
    };
    EXPECT_EQ(valueOf(nested(100'000), "k"), "v");
    EXPECT_EQ(valueOf(nested(jsonNestingCap - 1), "k"), "v");
    EXPECT_EQ(valueOf(nested(jsonNestingCap), "k"), "");
}

TEST(JsonLookUp, SurvivesNestingThatNeverEnds) {
    for (std::string text : {"", "{\"k\":"}) {
        text.resize(12'000'000, '[');
        EXPECT_EQ(valueOf(text, "k"), "");
    }
    std::string objects;
    for (int i = 0; i < 2'000'000; ++i)
        objects += "{\"k\":";
    EXPECT_EQ(valueOf(objects, "k"), "");
}

TEST(JsonWalk, VisitsEveryMemberInTheOrderOfTheText) {
    std::vector<std::pair<std::string, std::string>> members;
    const auto walk = walkJsonObject(R"({ "z" : "1\n", "a":{"in":[2]} ,"z":3, "":[ ]})",
                                     [&](const JsonText& key, auto token) {
                                         members.emplace_back(key.view(), token);
                                         return true;
                                     });
    EXPECT_EQ(walk, JsonWalk::complete);
    EXPECT_THAT(members, ElementsAre(Pair("z", R"("1\n")"), Pair("a", R"({"in":[2]})"),
                                     Pair("z", "3"), Pair("", "[ ]")));
}

TEST(JsonWalk, StopsWhenTheVisitorSaysSo) {
    std::size_t visits = 0;
    const auto walk = walkJsonObject(R"({"a":1,"b":{},"c":3 and no JSON)",
                                     [&](const JsonText&, auto) { return ++visits < 2; });
    EXPECT_EQ(walk, JsonWalk::stopped);
    EXPECT_EQ(visits, 2U);
}

TEST(JsonWalk, TellsWhenTheTextIsMalformed) {
    const auto ignore = [](const JsonText&, auto) { return true; };
    EXPECT_EQ(walkJsonObject("{}", ignore), JsonWalk::complete);
    EXPECT_EQ(walkJsonObject(R"({"a":1)", ignore), JsonWalk::malformed);
    EXPECT_EQ(walkJsonObject("[1]", ignore), JsonWalk::malformed);
    EXPECT_EQ(walkJsonObject("", ignore), JsonWalk::malformed);
}

}  // namespace
}  // namespace ravelin
