#include "support/block_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

constexpr auto blockSize = BlockWriter::blockSize;

struct Blocks {
    std::vector<std::string> all;
    BlockWriter writer{[this](std::string_view block) {
        all.emplace_back(block);
        return true;
    }};
};

TEST(BlockWriter, HandsOnFullBlocksAndTheRest) {
    Blocks blocks;
    const std::string text(blockSize * 2 + 5, 'a');
    blocks.writer.append(text);
    blocks.writer.append("");
    EXPECT_EQ(blocks.all, std::vector(2, std::string(blockSize, 'a')));
    EXPECT_TRUE(blocks.writer.finish());
    ASSERT_EQ(blocks.all.size(), 3U);
    EXPECT_EQ(blocks.all[2], "aaaaa");
}

TEST(BlockWriter, HandsOnNothingWhenNothingWasWritten) {
    Blocks blocks;
    EXPECT_TRUE(blocks.writer.finish());
    EXPECT_TRUE(blocks.all.empty());
}

TEST(BlockWriter, GivesRoomInOnePiece) {
    Blocks blocks;
    std::string expected;
    for (std::size_t size : {std::size_t{1}, blockSize - 1, std::size_t{1}, blockSize, blockSize}) {
        char* const room = blocks.writer.room(size);
        std::fill_n(room, size, 'r');
        // The last of them stays unused, and is no text.
        blocks.writer.filledTo(room + size - 1);
        expected += std::string(size - 1, 'r') + ',';
        blocks.writer.append(",");
    }
    EXPECT_TRUE(blocks.writer.finish());
    std::string text;
    for (const auto& block : blocks.all)
        text += block;
    EXPECT_EQ(text, expected);
}

TEST(BlockWriter, StopsAtABlockThatDoesNotArrive) {
    int calls = 0;
    BlockWriter writer([&calls](std::string_view) { return ++calls < 2; });
    writer.append(std::string(blockSize * 5, 'a'));
    EXPECT_FALSE(writer.finish());
    EXPECT_EQ(calls, 2);
}

class WriteInBlocks : public ::testing::Test {
  protected:
    static bool write(const std::string& path, const std::string& text) {
        return writeInBlocks(path, [&text](BlockWriter& out) { out.append(text); });
    }
    test::TempFolder folder;
    std::string path = folder.file("text.txt");
};

TEST_F(WriteInBlocks, ReplacesWhatWasThereByteForByte) {
    std::string text;
    for (int i = 0; i < 200000; ++i)
        text += static_cast<char>(i % 251);
    EXPECT_TRUE(write(path, text));
    EXPECT_EQ(test::readBytes(path), text);
    EXPECT_TRUE(write(path, "a\nb\r\n"));
    EXPECT_EQ(test::readBytes(path), "a\nb\r\n");
    EXPECT_TRUE(write(path, ""));
    EXPECT_EQ(test::readBytes(path), "");
}

TEST_F(WriteInBlocks, DoesNotBeginWhereNoFileCanBe) {
    bool called = false;
    const auto mark = [&called](BlockWriter&) { called = true; };
    EXPECT_FALSE(writeInBlocks(folder.file("no such folder/text.txt"), mark));
    EXPECT_FALSE(writeInBlocks(folder.path(), mark));
    EXPECT_FALSE(called);
}

#ifdef __linux__
TEST_F(WriteInBlocks, FailsOnAFullDisk) {
    EXPECT_FALSE(write("/dev/full", "a"));
    EXPECT_FALSE(write("/dev/full", std::string(1 << 20, 'z')));
}
#endif

}  // namespace
}  // namespace ravelin
