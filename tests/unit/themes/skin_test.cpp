#include "themes/skin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"

namespace ravelin {
namespace {

using samples::base64;
using samples::Bytes;
using samples::coloursOnly;
using samples::fontOfBytes;
using samples::jsonString;
using samples::Object;
using samples::png;
using samples::skinOf;
using samples::verdict;
using samples::withSkin;

const std::string buttonImage = jsonString(base64(png(192, 64)));
const std::string goodFont = jsonString(base64(fontOfBytes(1024)));

Object goodSkin() {
    return skinOf(Object{{{"button", buttonImage}}}).add("font", goodFont);
}

Object brokenSkin() {
    return Object{{{"template", jsonString("1")}, {"pieces", "[]"}, {"font", jsonString("!")}}};
}

TEST(Skin, CountsPiecesAndFont) {
    const auto result = samples::check(withSkin(goodSkin()));
    EXPECT_TRUE(result.theme.hasSkin);
    EXPECT_EQ(result.pieces, 1);
    EXPECT_TRUE(result.font);
    EXPECT_EQ(verdict(result), "OK skin 1 pieces +font");
    EXPECT_EQ(verdict(withSkin(goodSkin().remove("font"))), "OK skin 1 pieces");
    EXPECT_EQ(verdict(withSkin(goodSkin().remove("pieces"))), "OK skin 0 pieces +font");
}

TEST(Skin, IsLookedAtOnlyUnderFormat2) {
    const auto withFormat = [](std::string_view format) {
        return verdict(coloursOnly()
                           .set("skin", brokenSkin().json())
                           .set("format", std::string(format))
                           .json());
    };
    for (const char* format : {"2", "\"2\"", "\"\\u0032\""})
        EXPECT_EQ(withFormat(format), "skin.pieces is not an object") << format;
    for (const char* format : {"1", "\"1\"", "3", "2.0", "2e0", "20", "\"\"", "\" 2\"", "\"2 \"",
                               "\"02\"", "null", "true", "[2]", "{\"2\":2}"})
        EXPECT_EQ(withFormat(format), "OK colours") << format;
    EXPECT_EQ(verdict(coloursOnly().set("skin", brokenSkin().json()).json()), "OK colours");
}

TEST(Skin, IsLookedAtOnlyWithTemplate1) {
    const auto withTemplate = [](std::string_view text) {
        return verdict(withSkin(brokenSkin().set("template", std::string(text))));
    };
    for (const char* text : {"1", "\"1\""})
        EXPECT_EQ(withTemplate(text), "skin.pieces is not an object") << text;
    for (const char* text : {"2", "\"2\"", "1.0", "\"\"", "\"1 \"", "null", "[1]"})
        EXPECT_EQ(withTemplate(text), "OK colours") << text;
    EXPECT_EQ(verdict(withSkin(brokenSkin().remove("template"))), "OK colours");
}

TEST(Skin, MayBeMissingEmptyOrNoObject) {
    EXPECT_EQ(verdict(coloursOnly().set("format", "2").json()), "OK colours");
    for (const char* skin : {"\"\"", "null", "{}", "[]", "7", "\"text\"", "[{\"template\":1}]"})
        EXPECT_EQ(verdict(coloursOnly().set("format", "2").set("skin", skin).json()), "OK colours")
            << skin;
}

TEST(Skin, WithoutPiecesOrFontIsNone) {
    for (const char* pieces : {"{}", "{ }", "\"\"", "\"{}\""}) {
        const Object skin{{{"template", "1"}, {"pieces", pieces}, {"font", jsonString("")}}};
        const auto result = samples::check(withSkin(skin));
        EXPECT_EQ(verdict(result), "OK colours") << pieces;
        EXPECT_EQ(result.pieces, 0);
        EXPECT_FALSE(result.font);
    }
    EXPECT_EQ(verdict(withSkin(Object{{{"template", "1"}}})), "OK colours");
}

TEST(Skin, WantsItsPiecesAsAnObject) {
    for (const char* pieces :
         {"[]", "null", "0", "true", "\"x\"", "\" {}\"", "[{\"button\":\"\"}]", "\"{\"", "\"{]\""})
        EXPECT_EQ(verdict(withSkin(Object{{{"template", "1"}, {"pieces", pieces}}})),
                  "skin.pieces is not an object")
            << pieces;
}

TEST(Skin, MayBeTheTextOfAnObject) {
    const auto asString = [](std::string text) {
        for (std::size_t at = 0; (at = text.find_first_of("\"\\", at)) != std::string::npos;
             at += 2)
            text.insert(at, 1, '\\');
        return jsonString(text);
    };
    Object skin = skinOf(Object{{{"button", buttonImage}}});
    EXPECT_EQ(verdict(coloursOnly().set("format", "2").set("skin", asString(skin.json())).json()),
              "OK skin 1 pieces");
    skin.set("pieces", asString(Object{{{"button", buttonImage}, {"x", "1"}}}.json()));
    EXPECT_EQ(verdict(withSkin(skin)), "unknown skin piece name: x");
}

TEST(Skin, ChecksPiecesBeforeTheFont) {
    EXPECT_EQ(verdict(withSkin(skinOf(Object{{{"x", "1"}}}).add("font", jsonString("!")))),
              "unknown skin piece name: x");
    EXPECT_EQ(verdict(withSkin(goodSkin().set("font", jsonString("!")))),
              "invalid base64 for skin.font");
}

TEST(Skin, GivesNothingAwayOnFailure) {
    const auto result = samples::check(withSkin(goodSkin().set("font", jsonString("!"))));
    EXPECT_FALSE(result.valid);
    EXPECT_EQ(result.pieces, 0);
    EXPECT_FALSE(result.font);
    EXPECT_FALSE(result.theme.hasSkin);
}

}  // namespace
}  // namespace ravelin
