#include "support/file_system.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/environment.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

TEST(EnvironmentText, IsEmptyWhenItIsUnsetOrDoesNotFit) {
    constexpr char name[] = "RAVELIN_TEST_VARIABLE";
    test::unsetEnvironment(name);
    EXPECT_EQ(environmentText(name), "");
    test::setEnvironment(name, "C:\\some folder");
    EXPECT_EQ(environmentText(name), "C:\\some folder");
    test::setEnvironment(name, std::string(pathBufferSize - 1, 'a'));
    EXPECT_EQ(environmentText(name), std::string(pathBufferSize - 1, 'a'));
    test::setEnvironment(name, std::string(pathBufferSize, 'a'));
    EXPECT_EQ(environmentText(name), "");
    test::unsetEnvironment(name);
}

class FileSystem : public ::testing::Test {
  protected:
    test::TempFolder folder;
    std::string a = folder.file("a");
    std::string b = folder.file("b");
};

TEST_F(FileSystem, TellsFilesFromFolders) {
    EXPECT_FALSE(fileExists(a));
    test::writeBytes(a, "");
    EXPECT_TRUE(fileExists(a));
    EXPECT_FALSE(fileExists(folder.path()));
    EXPECT_FALSE(fileExists(""));
}

TEST_F(FileSystem, CreatesOneLevelOfFolders) {
    createFolder(a);
    createFolder(a);
    EXPECT_TRUE(std::filesystem::is_directory(a));
    createFolder(folder.file("x/y"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("x")));
}

TEST_F(FileSystem, MovesAFileButNeverOverAnother) {
    test::writeBytes(a, "one");
    EXPECT_TRUE(moveFile(a, b));
    EXPECT_FALSE(fileExists(a));
    EXPECT_EQ(test::readBytes(b), "one");
    test::writeBytes(a, "two");
    EXPECT_FALSE(moveFile(a, b));
    EXPECT_EQ(test::readBytes(a), "two");
    EXPECT_EQ(test::readBytes(b), "one");
    EXPECT_FALSE(moveFile(folder.file("missing"), folder.file("c")));
    EXPECT_FALSE(moveFile(a, folder.file("no folder/c")));
    EXPECT_EQ(test::readBytes(a), "two");
}

TEST_F(FileSystem, DeletesAFileButNoFolder) {
    test::writeBytes(a, "one");
    EXPECT_TRUE(deleteFile(a));
    EXPECT_FALSE(fileExists(a));
    EXPECT_FALSE(deleteFile(a));
    EXPECT_FALSE(deleteFile(folder.path()));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path()));
}

TEST_F(FileSystem, KnowsTheRunningExecutable) {
    const auto path = executablePath();
    EXPECT_TRUE(fileExists(path)) << path;
    EXPECT_NE(path.find("ravelin_unit_tests"), std::string::npos) << path;
}

}  // namespace
}  // namespace ravelin
