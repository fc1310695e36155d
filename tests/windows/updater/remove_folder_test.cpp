#include "packaging/setup/plugin/remove_folder_win32.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "support/win32_handles.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/harness/below_wine.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin {
namespace {

namespace fs = std::filesystem;

class RemoveFolder : public testing::Test {
  protected:
    fs::path root() const { return temporary_.path(); }
    fs::path folder() const { return root() / "profile"; }
    bool remove() const { return removeFolder(folder().wstring()); }
    void write(const std::string& name) const { temporary_.write("profile/" + name, "content"); }

  private:
    test::TempFolder temporary_;
};

TEST_F(RemoveFolder, TakesEverythingInIt) {
    write("one");
    write("two/three/four");
    write("two/read-only");
    SetFileAttributesW((folder() / "two" / "read-only").c_str(), FILE_ATTRIBUTE_READONLY);
    write("hidden");
    SetFileAttributesW((folder() / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    fs::create_directory(folder() / "empty");
    EXPECT_TRUE(remove());
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(RemoveFolder, WhatIsNotThereIsGone) {
    EXPECT_TRUE(remove());
    EXPECT_TRUE(fs::exists(root()));
}

TEST_F(RemoveFolder, WhatIsInUseStaysAndTheRestGoes) {
    write("one/in-use");
    write("one/other");
    write("two");
    const FileHandle held(CreateFileW((folder() / "one" / "in-use").c_str(), GENERIC_READ, 0,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(remove());
    EXPECT_TRUE(fs::exists(folder() / "one" / "in-use"));
    EXPECT_FALSE(fs::exists(folder() / "one" / "other"));
    EXPECT_FALSE(fs::exists(folder() / "two"));
}

TEST_F(RemoveFolder, AFolderThatSomebodyIsAboutToExchangeIsNotEntered) {
    write("one/file");
    const FileHandle other(CreateFileW(
        (folder() / "one").c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ASSERT_TRUE(other);
    EXPECT_FALSE(remove());
    EXPECT_TRUE(fs::exists(folder() / "one" / "file"));
}

TEST_F(RemoveFolder, AFileOfThatNameIsNoFolder) {
    test::writeBytes(folder().string(), "content");
    EXPECT_FALSE(remove());
    EXPECT_TRUE(fs::exists(folder()));
}

TEST_F(RemoveFolder, WhatALinkLeadsToStays) {
    const fs::path precious = root() / "precious";
    fs::create_directory(precious);
    test::writeBytes((precious / "file").string(), "content");
    fs::create_directory(folder());
    const auto below = [&](const std::string& tool, const std::string& arguments) {
        return test::runBelowWine("/bin/" + tool, arguments, root().wstring());
    };
    if (!below("ln", "-s ../precious profile/link")) GTEST_SKIP() << "no links to be had here";
    const auto isThere = [&] {
        return GetFileAttributesW((folder() / "link").c_str()) != INVALID_FILE_ATTRIBUTES;
    };
    ASSERT_TRUE(test::eventually(isThere));
    remove();
    EXPECT_TRUE(fs::exists(precious / "file"));
    // Wine does not remove such a link.
    below("rm", "profile/link");
    EXPECT_TRUE(test::eventually([&] { return !isThere(); }));
}

}  // namespace
}  // namespace ravelin
