#include "support/line_reader.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

using Lines = std::vector<std::string>;

Lines allOf(LineReader reader) {
    Lines lines;
    for (std::string_view line; reader.next(line);)
        lines.emplace_back(line);
    return lines;
}

// The lines of a text that arrives `step` bytes at a time at a reader with a tiny buffer.
Lines inPieces(std::string_view text, std::size_t step, std::size_t blockSize) {
    return allOf(LineReader(
        [text, step](char* buffer, std::size_t size) mutable {
            const auto count = text.copy(buffer, std::min(step, size));
            text.remove_prefix(count);
            return count;
        },
        blockSize));
}

TEST(LineReader, EndsLinesAtLineFeeds) {
    EXPECT_EQ(allOf(linesOf("")), Lines{});
    EXPECT_EQ(allOf(linesOf("\n")), Lines{""});
    EXPECT_EQ(allOf(linesOf("a")), Lines{"a"});
    EXPECT_EQ(allOf(linesOf("a\n")), Lines{"a"});
    EXPECT_EQ(allOf(linesOf("a\n\nb")), (Lines{"a", "", "b"}));
    EXPECT_EQ(allOf(linesOf("a\n\n")), (Lines{"a", ""}));
}

TEST(LineReader, StripsOneCarriageReturnFromTheEndOfALine) {
    for (const auto loneReturn : {LoneReturn::kept, LoneReturn::removed})
        EXPECT_EQ(allOf(linesOf("a\r\nb\r\r\n\r\n\rc", loneReturn)),
                  (Lines{"a", "b\r", "", "\rc"}));
    EXPECT_EQ(allOf(linesOf("a\rb\n")), Lines{"a\rb"});
}

TEST(LineReader, KeepsOrRemovesACarriageReturnWithoutALineFeedAtTheVeryEnd) {
    EXPECT_EQ(allOf(linesOf("a\nb\r")), (Lines{"a", "b\r"}));
    EXPECT_EQ(allOf(linesOf("a\nb\r", LoneReturn::removed)), (Lines{"a", "b"}));
    EXPECT_EQ(allOf(linesOf("b\r\r", LoneReturn::removed)), Lines{"b\r"});
    EXPECT_EQ(allOf(linesOf("\r")), Lines{"\r"});
    EXPECT_EQ(allOf(linesOf("\r", LoneReturn::removed)), Lines{""});
}

TEST(LineReader, TellsWhetherTheLastLineIsComplete) {
    const auto endsWithLineFeed = [](std::string_view text) {
        auto reader = linesOf(text);
        for (std::string_view line; reader.next(line);) {
        }
        return reader.endsWithLineFeed();
    };
    EXPECT_TRUE(endsWithLineFeed("a\n"));
    EXPECT_TRUE(endsWithLineFeed("a\nb\r\n"));
    EXPECT_FALSE(endsWithLineFeed("a\nb"));
    EXPECT_FALSE(endsWithLineFeed("a\nb\r"));
    EXPECT_FALSE(endsWithLineFeed(""));
}

TEST(LineReader, GivesNoHalfLineWhenReadingFails) {
    int calls = 0;
    LineReader reader([&calls](char* buffer, std::size_t size) -> std::optional<std::size_t> {
        if (++calls > 1) return std::nullopt;
        return std::string_view("one\ntwo").copy(buffer, size);
    });
    std::string_view line;
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line, "one");
    EXPECT_FALSE(reader.failed());
    EXPECT_FALSE(reader.next(line));
    EXPECT_TRUE(reader.failed());
    EXPECT_FALSE(reader.next(line));
}

TEST(LineReader, FailsAtAFolder) {
    const test::TempFolder folder;
    auto reader = openLines(folder.path());
    if (!reader) return;  // where a folder cannot even be opened
    EXPECT_EQ(allOf(std::move(*reader)), Lines{});
}

TEST(LineReader, LetsEveryOtherByteStandForItself) {
    const std::string text("a\0b\x1A\n\xFF\x80\n", 8);
    EXPECT_EQ(allOf(linesOf(text)), (Lines{std::string("a\0b\x1A", 4), "\xFF\x80"}));
}

TEST(LineReader, ReadsAlikeHoweverTheTextArrives) {
    const std::string text = "one\r\n\ntwo and some more\nthree\r\r\n" + std::string(100, 'x') +
                             "\r\nlast without an end";
    const auto whole = allOf(linesOf(text));
    ASSERT_EQ(whole.size(), 6U);
    for (std::size_t block = 1; block < 40; ++block)
        for (std::size_t step = 1; step <= block; ++step)
            EXPECT_EQ(inPieces(text, step, block), whole) << step << " of " << block;
}

TEST(LineReader, AsksForNoMoreThanFitsAndStopsAtTheEnd) {
    std::size_t calls = 0;
    LineReader reader(
        [&calls](char* buffer, std::size_t size) -> std::size_t {
            EXPECT_GT(size, 0U);
            if (++calls > 3) return 0;
            std::fill_n(buffer, size, 'x');
            return size;
        },
        16);
    std::string_view line;
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line.size(), 64U);  // 16, then the other halves of 32 and of 64
    EXPECT_FALSE(reader.next(line));
    EXPECT_FALSE(reader.next(line));
}

TEST(LineReader, ReadsAFileInBinary) {
    const test::TempFolder folder;
    const auto path = folder.file("lines.txt");
    const std::string longLine(LineReader::defaultBlockSize * 2 + 5, 'y');
    test::writeBytes(path, "a\r\n\x1A\n" + longLine + "\nend");
    auto reader = openLines(path);
    ASSERT_TRUE(reader);
    EXPECT_EQ(allOf(std::move(*reader)), (Lines{"a", "\x1A", longLine, "end"}));
    EXPECT_FALSE(openLines(folder.file("missing.txt")));
    EXPECT_FALSE(openLines(""));
}

}  // namespace
}  // namespace ravelin
