#include "support/text_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

class TextFile : public ::testing::Test {
  protected:
    std::string written(std::string_view text) const {
        EXPECT_TRUE(writeTextFile(path, text));
        return test::readBytes(path);
    }
    test::TempFolder folder;
    std::string path = folder.file("text.txt");
};

TEST_F(TextFile, HasCarriageReturnsOnDisk) {
    EXPECT_EQ(written("a\nb\n\nc"), "a\r\nb\r\n\r\nc");
    EXPECT_EQ(written("\n"), "\r\n");
    // As a Windows text stream does, whatever stands before the line feed.
    EXPECT_EQ(written("a\r\n\r"), "a\r\r\n\r");
}

TEST_F(TextFile, MayBeWrittenByteForByte) {
    EXPECT_TRUE(writeFile(path, "a\nb\r\n"));
    EXPECT_EQ(test::readBytes(path), "a\nb\r\n");
    EXPECT_TRUE(writeFile(path, ""));
    EXPECT_EQ(test::readBytes(path), "");
    EXPECT_FALSE(writeFile(folder.path(), ""));
}

TEST_F(TextFile, ReplacesWhatWasThere) {
    EXPECT_EQ(written("something longer\n"), "something longer\r\n");
    EXPECT_EQ(written(""), "");
}

TEST_F(TextFile, HoldsEveryByte) {
    std::string all;
    for (int c = 0; c < 256; ++c)
        if (c != '\n') all += static_cast<char>(c);
    EXPECT_EQ(written(all), all);
}

TEST_F(TextFile, MayBeLarge) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 60000; ++i) {
        text += std::to_string(i) + '\n';
        expected += std::to_string(i) + "\r\n";
    }
    EXPECT_EQ(written(text), expected);
    const std::string line(1 << 20, 'z');
    EXPECT_EQ(written(line), line);
}

TEST_F(TextFile, FailsWithoutAFolderToLieIn) {
    EXPECT_FALSE(writeTextFile(folder.file("no such folder/text.txt"), "a"));
    EXPECT_FALSE(writeTextFile(folder.path(), "a"));
}

#ifdef __linux__
TEST_F(TextFile, FailsOnAFullDisk) {
    EXPECT_FALSE(writeTextFile("/dev/full", "a"));
    EXPECT_FALSE(writeTextFile("/dev/full", std::string(1 << 20, 'z')));
}
#endif

}  // namespace
}  // namespace ravelin
