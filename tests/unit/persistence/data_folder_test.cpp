#include "persistence/data_folder.h"

#include "data_folder_fixture.h"
#include "support/file_system.h"

namespace ravelin {
namespace {

using DataFolder = test::DataFolderFixture;

std::string joined(const std::string& folder, const std::string& name) {
    return folder + pathSeparator + name;
}

TEST_F(DataFolder, LiesUnderTheLocalApplicationData) {
    const auto expected = joined(localAppData.path(), "Ravelin");
    EXPECT_EQ(dataFolder(), expected);
    EXPECT_FALSE(std::filesystem::exists(expected));
    EXPECT_EQ(dataFile("theme.txt"), joined(expected, "theme.txt"));
    EXPECT_TRUE(std::filesystem::is_directory(expected));
    EXPECT_FALSE(std::filesystem::exists(joined(expected, "theme.txt")));
}

TEST_F(DataFolder, LiesInTheCurrentFolderWithoutOne) {
    test::unsetEnvironment("LOCALAPPDATA");
    EXPECT_EQ(dataFolder(), joined(".", "Ravelin"));
    test::setEnvironment("LOCALAPPDATA", std::string(260, 'x'));
    EXPECT_EQ(dataFolder(), joined(".", "Ravelin"));
    test::setEnvironment("LOCALAPPDATA", std::string(259, 'x'));
    EXPECT_EQ(dataFolder(), joined(std::string(259, 'x'), "Ravelin"));
}

TEST_F(DataFolder, IsAskedForAnewEachTime) {
    const auto first = dataFile("a");
    const test::TempFolder other;
    test::setEnvironment("LOCALAPPDATA", other.path());
    EXPECT_NE(dataFile("a"), first);
    EXPECT_EQ(dataFolder(), joined(other.path(), "Ravelin"));
}

TEST_F(DataFolder, MayBeImpossibleToCreate) {
    test::setEnvironment("LOCALAPPDATA", localAppData.file("missing"));
    EXPECT_EQ(dataFile("a"), joined(joined(localAppData.file("missing"), "Ravelin"), "a"));
    EXPECT_FALSE(std::filesystem::exists(localAppData.file("missing")));
}

TEST(ExecutableFolder, HoldsTheRunningExecutable) {
    const auto folder = executableFolder();
    EXPECT_TRUE(std::filesystem::is_directory(folder)) << folder;
    EXPECT_EQ(executablePath().rfind(folder + pathSeparator, 0), 0U);
    EXPECT_EQ(executablePath().find(pathSeparator, folder.size() + 1), std::string::npos);
}

}  // namespace
}  // namespace ravelin
