#include "support/text.h"

#include <gtest/gtest.h>

#include <array>

namespace ravelin {
namespace {

using Pieces = std::vector<std::string>;

TEST(FlattenArgs, RemovesBracketsAndQuotesWhereverTheyStand) {
    EXPECT_EQ(flattenArgs(R"(["a","b"])"), "a,b");
    EXPECT_EQ(flattenArgs(R"([1, 2])"), "1, 2");
    EXPECT_EQ(flattenArgs("[]"), "");
    EXPECT_EQ(flattenArgs(""), "");
    EXPECT_EQ(flattenArgs(R"(["x[1]\"y\\z"])"), R"(x1\y\\z)");
    EXPECT_EQ(flattenArgs("{'a': 1}"), "{'a': 1}");
}

TEST(SplitList, SplitsAsRepeatedLineReadingDoes) {
    EXPECT_EQ(splitList("", ','), Pieces{});
    EXPECT_EQ(splitList("a", ','), Pieces{"a"});
    EXPECT_EQ(splitList("a,b", ','), (Pieces{"a", "b"}));
    EXPECT_EQ(splitList("a,,b", ','), (Pieces{"a", "", "b"}));
    EXPECT_EQ(splitList("a,", ','), Pieces{"a"});
    EXPECT_EQ(splitList(",", ','), Pieces{""});
    EXPECT_EQ(splitList(",a", ','), (Pieces{"", "a"}));
    EXPECT_EQ(splitList("a,,", ','), (Pieces{"a", ""}));
    EXPECT_EQ(splitList("a|b,c", '|'), (Pieces{"a", "b,c"}));
}

TEST(SplitInto, FillsThePlacesFromTheFront) {
    std::array<std::string_view, 3> places;
    const auto split = [&](std::string_view text) {
        Pieces pieces;
        for (const auto piece : splitInto(places, text, ','))
            pieces.emplace_back(piece);
        return pieces;
    };
    EXPECT_EQ(split(""), Pieces{});
    EXPECT_EQ(split("a,"), Pieces{"a"});
    EXPECT_EQ(split("a,,"), (Pieces{"a", ""}));
    EXPECT_EQ(split("a,b,c"), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(split("a,b,c,d"), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitInto(std::span<std::string_view>(), "a", ',').size(), 0U);
}

TEST(JsonQuote, EscapesWhatJsonAsksFor) {
    EXPECT_EQ(jsonQuote(""), "\"\"");
    EXPECT_EQ(jsonQuote("a\"b\\c/"), R"("a\"b\\c/")");
    EXPECT_EQ(jsonQuote("\b\t\n\f\r"), R"("\b\t\n\f\r")");
    EXPECT_EQ(jsonQuote(std::string("\0\x01\x0B\x1F", 4)), R"("\u0000\u0001\u000b\u001f")");
    EXPECT_EQ(jsonQuote("\x7F\x80\xFF"), "\"\x7F\x80\xFF\"");
    EXPECT_EQ(jsonQuote("Gr\xC3\xBC\xC3\x9F"), "\"Gr\xC3\xBC\xC3\x9F\"");
}

}  // namespace
}  // namespace ravelin
