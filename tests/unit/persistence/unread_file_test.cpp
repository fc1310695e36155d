#include "persistence/unread_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

class Unread : public testing::Test {
  protected:
    const test::TempFolder folder;
    const std::string path = folder.file("file.txt");
    const std::string copy = folder.file("file.txt.unread");
    UnreadFile unread;
};

TEST_F(Unread, NeedsNoCopyWhenNothingWasNoted) {
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_FALSE(std::filesystem::exists(copy));
}

TEST_F(Unread, IsCopiedOnceAndStays) {
    test::writeBytes(path, "old");
    unread.note(path, copy);
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_EQ(test::readBytes(path), "old");
    test::writeBytes(path, "new");
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_EQ(test::readBytes(copy), "old");
}

TEST_F(Unread, HoldsWhatLiesThereAtTheFirstSave) {
    test::writeBytes(path, "at the start");
    unread.note(path, copy);
    test::writeBytes(path, "written by somebody since");
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_EQ(test::readBytes(copy), "written by somebody since");
}

TEST_F(Unread, ReplacesAnEarlierCopy) {
    test::writeBytes(path, "new");
    test::writeBytes(copy, "a longer one of an earlier start");
    unread.note(path, copy);
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_EQ(test::readBytes(copy), "new");
}

TEST_F(Unread, IsNothingWhenTheFileIsMissingEmptyOrAFolder) {
    unread.note(path, copy);
    EXPECT_TRUE(unread.keepCopy());
    test::writeBytes(path, "");
    unread.note(path, copy);
    EXPECT_TRUE(unread.keepCopy());
    unread.note(folder.path(), copy);
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_FALSE(std::filesystem::exists(copy));
}

TEST_F(Unread, MayBeWrittenOverWhenItIsGone) {
    test::writeBytes(path, "old");
    unread.note(path, copy);
    std::filesystem::remove(path);
    EXPECT_TRUE(unread.keepCopy());
}

TEST_F(Unread, IsNotWrittenOverBeforeACopyWasMade) {
    test::writeBytes(path, "old");
    unread.note(path, folder.file("missing/copy"));
    EXPECT_FALSE(unread.keepCopy());
    EXPECT_FALSE(unread.keepCopy());
    std::filesystem::create_directory(folder.file("missing"));
    EXPECT_TRUE(unread.keepCopy());
    EXPECT_EQ(test::readBytes(folder.file("missing/copy")), "old");
}

}  // namespace
}  // namespace ravelin
