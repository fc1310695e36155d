#include "themes/colour.h"

#include <gtest/gtest.h>

#include <string>

namespace ravelin {
namespace {

TEST(Colour, AcceptsThreeAndSixHexadecimalDigitsOfEitherCase) {
    for (const char* text : {"#000", "#fff", "#FFF", "#aB9", "#000000", "#fFfFfF", "#09afAF"})
        EXPECT_TRUE(isValidColour(text)) << text;
}

TEST(Colour, RejectsOtherHexadecimalForms) {
    for (const char* text :
         {"",          "#",    "#1",       "#12",   "#1234",   "#12345", "#1234567",
          "#12345678", "#ggg", "#12345g",  "123",   "123456",  " #fff",  "#fff ",
          "##ff",      "#-12", "#+123456", "0xfff", "#12345 ", "# 12"})
        EXPECT_FALSE(isValidColour(text)) << text;
}

TEST(Colour, ChecksEveryCharacterOfAHexadecimalForm) {
    for (const std::string good : {"#fff", "#abcdef"})
        for (std::size_t i = 0; i < good.size(); ++i)
            for (const char wrong : {'g', 'G', '/', ':', '@', '`', '\0', '\x80', '\xff'}) {
                std::string text = good;
                text[i] = wrong;
                EXPECT_FALSE(isValidColour(text)) << text;
            }
}

TEST(Colour, AcceptsRgbWithThreePartsUpTo255) {
    for (const char* text : {"rgb(0,0,0)", "rgb(255,255,255)", "rgb(255, 0,0)", "rgb( 1 , 2 , 3 )",
                             "rgb(   7,8,9   )", "rgb(007,08,9)", "rgb(249,250,251)"})
        EXPECT_TRUE(isValidColour(text)) << text;
}

TEST(Colour, RejectsRgbPartsOutOfRangeOrNotDecimal) {
    for (const char* text : {"rgb(256,0,0)", "rgb(0,256,0)", "rgb(0,0,256)", "rgb(999,0,0)",
                             "rgb(0001,0,0)", "rgb(-1,0,0)", "rgb(+1,0,0)", "rgb(1.0,0,0)",
                             "rgb(f,0,0)", "rgb(10%,0,0)", "rgb(1 2,0,0)", "rgb(\t1,0,0)",
                             "rgb(1\n,0,0)", "rgb(,,)", "rgb( , , )", "rgb(1,,3)", "rgb(1,2,)"})
        EXPECT_FALSE(isValidColour(text)) << text;
}

TEST(Colour, RejectsAnyOtherNumberOfRgbParts) {
    for (const char* text : {"rgb()", "rgb(1)", "rgb(1,2)", "rgb(1,2,3,4)", "rgb(1,2,3,)",
                             "rgb(,1,2,3)", "rgb(1,2,3,,)"})
        EXPECT_FALSE(isValidColour(text)) << text;
}

TEST(Colour, RejectsAnythingElse) {
    for (const char* text : {"rgb(",        "rgb)",        "rgb(1,2,3",       "rgb 1,2,3)",
                             "RGB(1,2,3)",  "Rgb(1,2,3)",  "rgb (1,2,3)",     " rgb(1,2,3)",
                             "rgb(1,2,3) ", "rgb(1,2,3);", "rgba(1,2,3,0.5)", "rgba(1,2,3)",
                             "hsl(1,2,3)",  "rgb(1 2 3)",  "rgb(1,2,3 / 1)",  "red",
                             "transparent", "inherit",     "var(--a)",        "rgb((1,2,3))",
                             "rgb(1,2,3))", "url(#fff)"})
        EXPECT_FALSE(isValidColour(text)) << text;
}

}  // namespace
}  // namespace ravelin
