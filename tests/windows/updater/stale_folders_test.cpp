#include "updater/stale_folders_win32.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "support/utf.h"
#include "support/win32_handles.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/harness/below_wine.h"
#include "tests/windows/harness/eventually.h"
#include "updater/stale_folders.h"
#include "updater/temporary_folder.h"

namespace ravelin {
namespace {

namespace fs = std::filesystem;

bool anybody(PSID) {
    return true;
}

bool nobody(PSID) {
    return false;
}

class StaleFoldersOnDisk : public testing::Test {
  protected:
    // A link is nothing that the folder's own end could remove.
    ~StaleFoldersOnDisk() override {
        if (link_.empty()) return;
        runBelow("rm", link_);
        test::eventually([&] { return !isThere(link_); });
    }

    // A folder with a file in it.
    fs::path make(const std::string& name) const {
        const fs::path folder = root() / name;
        fs::create_directory(folder);
        test::writeBytes((folder / "installer.exe").string(), "MZ");
        return folder;
    }

    // Makes `name` in the folder a link. Wine has no links of its own, only those of the system
    // below it; on Windows there is nothing to call and the test is passed over.
    bool link(const std::string& target, const std::string& name) {
        if (!runBelow("ln", "-s " + target + " " + name)) return false;
        link_ = name;
        return test::eventually([&] { return isThere(name); });
    }

    bool isThere(const std::string& name) const {
        return GetFileAttributesW((root() / name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    void sweep(bool (*maySweep)(PSID)) const {
        sweepUpdateFolders(root().wstring() + L"\\", maySweep);
    }

    fs::path root() const { return folder_.path(); }

  private:
    bool runBelow(const std::string& tool, const std::string& arguments) const {
        return test::runBelowWine("/bin/" + tool, arguments, root().wstring());
    }

    test::TempFolder folder_;
    std::string link_;
};

TEST_F(StaleFoldersOnDisk, AreRemovedWithTheirFiles) {
    const fs::path first = make("Ravelin-update-00112233445566778899aabbccddeeff");
    const fs::path second = make("Ravelin-update-x");
    test::writeBytes((second / "more.tmp").string(), "");
    sweep(anybody);
    EXPECT_FALSE(fs::exists(first));
    EXPECT_FALSE(fs::exists(second));
}

TEST_F(StaleFoldersOnDisk, OfAnotherOwnerAreLeftAlone) {
    const fs::path folder = make("Ravelin-update-1");
    sweep(nobody);
    EXPECT_TRUE(fs::exists(folder / "installer.exe"));
}

TEST_F(StaleFoldersOnDisk, TheOwnerOfEachIsAskedFor) {
    make("Ravelin-update-1");
    make("Ravelin-update-2");
    int asked = 0;
    sweepUpdateFolders(root().wstring() + L"\\", [&](PSID owner) {
        EXPECT_TRUE(IsValidSid(owner));
        return ++asked == 1;
    });
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(fs::exists(root() / "Ravelin-update-1") + fs::exists(root() / "Ravelin-update-2"), 1);
}

TEST_F(StaleFoldersOnDisk, NothingTakesTheirPlaceOnceTheOwnerIsKnown) {
    const fs::path folder = make("Ravelin-update-1");
    const fs::path precious = make("precious");
    DWORD moved = ERROR_SUCCESS;
    sweepUpdateFolders(root().wstring() + L"\\", [&](PSID) {
        moved = MoveFileW(folder.c_str(), (root() / "elsewhere").c_str()) ? ERROR_SUCCESS
                                                                          : GetLastError();
        return true;
    });
    EXPECT_EQ(moved, static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_FALSE(fs::exists(root() / "elsewhere"));
    EXPECT_TRUE(fs::exists(precious / "installer.exe"));
}

TEST_F(StaleFoldersOnDisk, AFolderThatSomebodyIsAboutToRenameIsNotEvenAskedAbout) {
    const fs::path folder = make("Ravelin-update-1");
    const FileHandle other(
        CreateFileW(folder.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ASSERT_TRUE(other);
    bool asked = false;
    sweepUpdateFolders(root().wstring() + L"\\", [&](PSID) { return asked = true; });
    EXPECT_FALSE(asked);
    EXPECT_TRUE(fs::exists(folder / "installer.exe"));
}

TEST_F(StaleFoldersOnDisk, OtherNamesAreLeftAlone) {
    const fs::path other = make("Ravelin-updates");
    const fs::path prefixed = make("my-Ravelin-update-1");
    sweep(anybody);
    EXPECT_TRUE(fs::exists(other / "installer.exe"));
    EXPECT_TRUE(fs::exists(prefixed / "installer.exe"));
}

TEST_F(StaleFoldersOnDisk, AFileOfThatNameIsLeftAlone) {
    test::writeBytes((root() / "Ravelin-update-file").string(), "text");
    sweep(anybody);
    EXPECT_TRUE(fs::exists(root() / "Ravelin-update-file"));
}

TEST_F(StaleFoldersOnDisk, ASubFolderStaysAndKeepsItsParent) {
    const fs::path folder = make("Ravelin-update-1");
    fs::create_directory(folder / "inner");
    test::writeBytes((folder / "inner" / "file").string(), "text");
    sweep(anybody);
    EXPECT_FALSE(fs::exists(folder / "installer.exe"));
    EXPECT_TRUE(fs::exists(folder / "inner" / "file"));
}

TEST_F(StaleFoldersOnDisk, ALinkInPlaceOfTheFolderIsNeverFollowed) {
    const fs::path precious = make("precious");
    if (!link("precious", "Ravelin-update-1")) GTEST_SKIP() << "no links to be had here";
    sweep(anybody);
    EXPECT_TRUE(fs::exists(precious / "installer.exe"));
    EXPECT_TRUE(isThere("Ravelin-update-1"));
}

TEST_F(StaleFoldersOnDisk, ALinkInsideIsNeverFollowed) {
    const fs::path precious = make("precious");
    const fs::path folder = make("Ravelin-update-1");
    if (!link("../precious", "Ravelin-update-1/link")) GTEST_SKIP() << "no links to be had here";
    sweep(anybody);
    EXPECT_TRUE(fs::exists(precious / "installer.exe"));
    EXPECT_FALSE(fs::exists(folder / "installer.exe"));
    EXPECT_TRUE(fs::exists(folder));
}

TEST_F(StaleFoldersOnDisk, TheRealSweepLeavesFoldersOfTheUserAlone) {
    const auto temporary = temporaryFolder();
    ASSERT_TRUE(temporary);
    const fs::path folder = fs::path(*temporary) / "Ravelin-update-owned-by-the-user";
    fs::create_directory(folder);
    SweepStaleUpdateFolders();
    EXPECT_TRUE(fs::exists(folder));
    fs::remove(folder);
}

TEST_F(StaleFoldersOnDisk, AFolderThatIsNotThereIsNoError) {
    sweepUpdateFolders(root().wstring() + L"\\missing\\", anybody);
    EXPECT_TRUE(fs::exists(root()));
}

TEST(TemporaryFolder, EndsInABackslash) {
    const auto folder = temporaryFolder();
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->back(), L'\\');
    EXPECT_TRUE(fs::is_directory(*folder));
}

TEST(TemporaryFolder, IsNoneWhenItsPathIsTooLong) {
    std::array<wchar_t, MAX_PATH> before{};
    GetEnvironmentVariableW(L"TMP", before.data(), MAX_PATH);
    SetEnvironmentVariableW(L"TMP", (L"C:\\" + std::wstring(300, L'x')).c_str());
    EXPECT_FALSE(temporaryFolder());
    SetEnvironmentVariableW(L"TMP", before.data());
    EXPECT_TRUE(temporaryFolder());
}

}  // namespace
}  // namespace ravelin
