#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"

namespace ravelin {
namespace {

using samples::check;
using samples::coloursOnly;
using samples::jsonString;
using samples::verdict;

constexpr char badName[] = "invalid or missing name";
constexpr char badFont[] = "invalid or missing font stack";

TEST(ThemeValidation, FillsTheRecordWithTheTextsOfTheFile) {
    const auto result = check(coloursOnly().json());
    ASSERT_TRUE(result.valid) << result.error;
    EXPECT_EQ(result.theme.name, "Harbour");
    EXPECT_EQ(result.theme.bgMain, "#101418");
    EXPECT_EQ(result.theme.bgPanel, "#1a2026");
    EXPECT_EQ(result.theme.bgHeader, "#ABC");
    EXPECT_EQ(result.theme.accent, "rgb(0, 122,255)");
    EXPECT_EQ(result.theme.accentHover, "#3395ff");
    EXPECT_EQ(result.theme.text, "#fff");
    EXPECT_EQ(result.theme.font, samples::proportionalFonts);
    EXPECT_FALSE(result.theme.hasSkin);
    EXPECT_EQ(result.theme.sourcePath, "");
    EXPECT_EQ(result.pieces, 0);
    EXPECT_FALSE(result.font);
}

TEST(ThemeValidation, RejectsAnEmptyText) {
    EXPECT_EQ(verdict(""), "file is empty");
}

TEST(ThemeValidation, TakesATextOfTheCapAndNoLonger) {
    std::string text = coloursOnly().json();
    text.resize(themeFileCap, ' ');
    ASSERT_EQ(text.size(), 12'582'912U);
    EXPECT_EQ(verdict(text), "OK colours");
    text += ' ';
    EXPECT_EQ(verdict(text), "file exceeds the 12 MB cap");
}

TEST(ThemeValidation, MissesTheNameOfATextThatIsNoJsonObject) {
    const std::string good = coloursOnly().json();
    for (const std::string& text :
         {std::string("x"), std::string("[]"), "[" + good + "]", good.substr(0, good.size() - 1),
          good + "x", "\xEF\xBB\xBF" + good, jsonString("x")})
        EXPECT_EQ(verdict(text), badName) << text;
}

TEST(ThemeValidation, TakesNamesOf1To40Bytes) {
    const auto named = [](const std::string& name) {
        return verdict(coloursOnly().set("name", jsonString(name)).json());
    };
    EXPECT_EQ(named(""), badName);
    EXPECT_EQ(named("N"), "OK colours");
    EXPECT_EQ(named(std::string(40, 'N')), "OK colours");
    EXPECT_EQ(named(std::string(41, 'N')), badName);
    EXPECT_EQ(verdict(coloursOnly().remove("name").json()), badName);
}

TEST(ThemeValidation, TakesTheRawTextOfANameThatIsNoString) {
    for (const std::string value : {"7.50", "null", "{ \"a\": [1] }"})
        EXPECT_EQ(check(coloursOnly().set("name", value).json()).theme.name, value);
    EXPECT_EQ(verdict(coloursOnly().set("name", "[" + std::string(40, ' ') + "]").json()), badName);
}

TEST(ThemeValidation, CountsTheBytesOfANameNotItsCharacters) {
    std::string name;
    for (int i = 0; i < 20; ++i)
        name += "\xC3\xA9";
    const auto result = check(coloursOnly().set("name", jsonString(name)).json());
    EXPECT_TRUE(result.valid);
    EXPECT_EQ(result.theme.name, name);
    EXPECT_EQ(verdict(coloursOnly().set("name", jsonString(name + "e")).json()), badName);
    EXPECT_EQ(
        verdict(coloursOnly().set("name", jsonString(name.substr(2) + "\xE2\x82\xAC")).json()),
        badName);
    // The same with escapes, which are six characters each in the file.
    std::string escaped;
    for (int i = 0; i < 20; ++i)
        escaped += "\\u00e9";
    EXPECT_EQ(check(coloursOnly().set("name", jsonString(escaped)).json()).theme.name, name);
    EXPECT_EQ(verdict(coloursOnly().set("name", jsonString(escaped + "\\u00e9")).json()), badName);
}

TEST(ThemeValidation, RejectsControlCharactersInAName) {
    for (int code = 0; code < 256; ++code) {
        // The code as one byte: as an escape where JSON wants one, else as it is.
        char escape[] = "\\u0000";
        escape[4] = "0123456789abcdef"[code >> 4];
        escape[5] = "0123456789abcdef"[code & 15];
        std::string character = escape;
        if (code >= 0x80) character.assign(1, static_cast<char>(code));
        const std::string json =
            coloursOnly().set("name", jsonString("a" + character + "b")).json();
        EXPECT_EQ(verdict(json), code < 32 || code == 127 ? badName : "OK colours") << code;
    }
    EXPECT_EQ(verdict(coloursOnly().set("name", jsonString("a\tb")).json()), badName);
}

TEST(ThemeValidation, NamesTheFirstWrongColour) {
    const char* keys[] = {"bgMain", "bgPanel", "bgHeader", "accent", "accentHover", "text"};
    for (const std::string key : keys) {
        const std::string message = "invalid or missing " + key;
        EXPECT_EQ(verdict(coloursOnly().remove(key).json()), message);
        for (const char* value :
             {"\"\"", "\"red\"", "\"#12345\"", "\"rgba(1,2,3,1)\"", "null", "123"})
            EXPECT_EQ(verdict(coloursOnly().set(key, value).json()), message) << value;
    }
    // One after another is mended, in the order of the checks whatever the order of the file.
    samples::Object theme{{{"font", "0"}}};
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        theme.add(*key, "0");
    EXPECT_EQ(verdict(theme.json()), badName);
    theme.add("name", jsonString("N"));
    for (const std::string key : keys) {
        EXPECT_EQ(verdict(theme.json()), "invalid or missing " + key);
        theme.set(key, jsonString("#000"));
    }
    EXPECT_EQ(verdict(theme.json()), badFont);
    theme.set("font", jsonString(samples::fixedPitchFonts));
    EXPECT_EQ(verdict(theme.json()), "OK colours");
}

TEST(ThemeValidation, TakesExactlyTheTwoFontStacks) {
    const auto withStack = [](const std::string& stack) {
        return verdict(coloursOnly().set("font", jsonString(stack)).json());
    };
    EXPECT_EQ(withStack("'Segoe UI', Tahoma, Geneva, Verdana, sans-serif"), "OK colours");
    EXPECT_EQ(withStack("'Consolas', 'Courier New', monospace"), "OK colours");
    for (const char* stack :
         {"", "'Segoe UI',Tahoma, Geneva, Verdana, sans-serif", "'Consolas', 'Courier New'",
          "'consolas', 'Courier New', monospace", "'Consolas', 'Courier New', monospace ",
          "Arial, sans-serif", "'Consolas', 'Courier New', monospace;"})
        EXPECT_EQ(withStack(stack), badFont) << stack;
    EXPECT_EQ(verdict(coloursOnly().remove("font").json()), badFont);
}

TEST(ThemeValidation, TakesTheFirstOfARepeatedKey) {
    auto first = coloursOnly().add("name", jsonString("")).add("bgMain", "0").add("font", "0");
    EXPECT_EQ(verdict(first.json()), "OK colours");
    auto second =
        coloursOnly().set("text", jsonString("no colour")).add("text", jsonString("#000"));
    EXPECT_EQ(verdict(second.json()), "invalid or missing text");
}

TEST(ThemeValidation, IgnoresUnknownKeysHoweverDeep) {
    const std::string deep = std::string(200'000, '[') + std::string(200'000, ']');
    EXPECT_EQ(verdict(coloursOnly().set("notes", deep).set("bgmain", "0").json()), "OK colours");
}

TEST(ThemeValidation, IgnoresNumbersOfAnySizeThatNobodyAsksFor) {
    for (const std::string number : {"1e999", "-1e999", "1e-999"}) {
        EXPECT_EQ(verdict(coloursOnly().set("revision", number).json()), "OK colours") << number;
        EXPECT_EQ(verdict(coloursOnly().set("revisions", "[" + number + "]").json()), "OK colours");
        EXPECT_EQ(verdict(coloursOnly().set("format", number).json()), "OK colours") << number;
    }
    EXPECT_EQ(verdict(coloursOnly().set("revision", "1e").json()), "invalid or missing name");
}

TEST(ThemeValidation, IgnoresEitherHalfOfASurrogatePairInAnUnusedKey) {
    for (const std::string half : {"\\ud800", "\\udc00"})
        EXPECT_EQ(verdict(coloursOnly().set(half, jsonString(half)).json()), "OK colours") << half;
}

TEST(ThemeValidation, LeavesTheRecordAloneOnFailure) {
    ThemeRecord theme;
    theme.name = "before";
    std::int32_t pieces = 7;
    bool font = true;
    std::string error;
    EXPECT_FALSE(
        validateTheme(coloursOnly().set("text", "0").json(), theme, &error, &pieces, &font));
    EXPECT_EQ(theme.name, "before");
    EXPECT_EQ(theme.bgMain, "");
    EXPECT_EQ(pieces, 0);
    EXPECT_FALSE(font);
    EXPECT_EQ(error, "invalid or missing text");
}

TEST(ThemeValidation, ReplacesAnEarlierThemeWhole) {
    ThemeRecord theme;
    theme.hasSkin = true;
    theme.sourcePath = "earlier";
    EXPECT_TRUE(validateTheme(coloursOnly().json(), theme));
    EXPECT_FALSE(theme.hasSkin);
    EXPECT_EQ(theme.sourcePath, "");
}

TEST(ThemeValidation, WorksWithoutPlacesForTheDetails) {
    ThemeRecord theme;
    EXPECT_FALSE(validateTheme("", theme));
    EXPECT_FALSE(validateTheme(coloursOnly().set("font", "0").json(), theme));
    EXPECT_TRUE(validateTheme(coloursOnly().json(), theme));
}

}  // namespace
}  // namespace ravelin
