#include "updater/stale_folders.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

TEST(StaleFolders, OnlyAFolderThatIsNoLinkIsAFolder) {
    EXPECT_TRUE(isRealFolder(0x10));
    EXPECT_TRUE(isRealFolder(0x10 | 0x2 | 0x2000));
    EXPECT_FALSE(isRealFolder(0x10 | 0x400));
    EXPECT_FALSE(isRealFolder(0x80));
    EXPECT_FALSE(isRealFolder(0x400));
    EXPECT_FALSE(isRealFolder(0));
}

TEST(StaleFolders, OnlyAFileThatIsNoLinkIsAFile) {
    EXPECT_TRUE(isRealFile(0x80));
    EXPECT_TRUE(isRealFile(0x1 | 0x20));
    EXPECT_FALSE(isRealFile(0x400 | 0x20));
    EXPECT_FALSE(isRealFile(0x10));
    EXPECT_FALSE(isRealFile(0x10 | 0x400));
}

}  // namespace
}  // namespace ravelin
