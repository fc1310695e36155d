// Nobody exchanges an installer between the look at it and its start.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/utf.h"
#include "support/win32_handles.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/harness/below_wine.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "updater/file_hold_win32.h"
#include "updater/hash.h"
#include "updater/installer_start.h"
#include "updater/update_download.h"

namespace ravelin {
namespace {

namespace fs = std::filesystem;

DWORD errorOf(BOOL succeeded) {
    return succeeded ? ERROR_SUCCESS : GetLastError();
}

// What somebody would ask for who wants to change a file.
constexpr DWORD changes[] = {GENERIC_WRITE, FILE_APPEND_DATA, DELETE};
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

FileHandle openShared(const fs::path& path, DWORD access) {
    return FileHandle(CreateFileW(path.c_str(), access, shareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

class HeldInstallerOnDisk : public testing::Test {
  protected:
    HeldInstallerOnDisk() {
        fs::create_directory(folder());
        test::writeBytes(file().string(), "genuine");
        test::writeBytes(forged().string(), "forged");
    }
    // A link is nothing that the folder's own end could remove.
    ~HeldInstallerOnDisk() override {
        if (link_.empty()) return;
        test::runBelowWine("/bin/rm", link_, root().wstring());
        test::eventually([&] { return !isThere(link_); });
    }

    fs::path root() const { return temporary_.path(); }
    fs::path folder() const { return root() / "Ravelin-update-1"; }
    fs::path file() const { return folder() / "installer.exe"; }
    fs::path forged() const { return root() / "forged.exe"; }

    // Everything by which another program could put other bytes under the installer's path. Gives
    // what worked.
    std::vector<std::string> attack() const {
        std::vector<std::string> worked;
        const auto attempt = [&](const char* name, BOOL succeeded) {
            if (succeeded) worked.emplace_back(name);
        };
        for (const DWORD access : changes)
            attempt("open", static_cast<bool>(openShared(file(), access)));
        attempt("truncate", static_cast<bool>(FileHandle(
                                CreateFileW(file().c_str(), GENERIC_WRITE, shareAll, nullptr,
                                            CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))));
        attempt("delete", DeleteFileW(file().c_str()));
        attempt("replace",
                MoveFileExW(forged().c_str(), file().c_str(), MOVEFILE_REPLACE_EXISTING));
        attempt("swap",
                ReplaceFileW(file().c_str(), forged().c_str(), nullptr, 0, nullptr, nullptr));
        attempt("rename", MoveFileW(file().c_str(), (folder() / "other.exe").c_str()));
        attempt("move the folder", MoveFileW(folder().c_str(), (root() / "other").c_str()));
        attempt("delete the folder", RemoveDirectoryW(folder().c_str()));
        return worked;
    }

    // False on Windows, where there is nothing to call.
    bool link(const std::string& target, const std::string& name) {
        if (!test::runBelowWine("/bin/ln", "-s " + target + " " + name, root().wstring()))
            return false;
        link_ = name;
        return test::eventually([&] { return isThere(name); });
    }

  private:
    bool isThere(const std::string& name) const {
        return GetFileAttributesW((root() / name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    test::TempFolder temporary_;
    std::string link_;
};

using Words = std::vector<std::string>;

TEST_F(HeldInstallerOnDisk, IsReadByAllAndChangedByNobody) {
    auto hold = holdFile(file().wstring());
    ASSERT_TRUE(hold);
    EXPECT_EQ(attack(), Words{});
    EXPECT_EQ(test::readBytes(file().string()), "genuine");
    EXPECT_EQ(FileSha256Hex(file().wstring()), Sha256Hex("genuine"));
    hold.reset();
    EXPECT_TRUE(MoveFileExW(forged().c_str(), file().c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_TRUE(MoveFileW(folder().c_str(), (root() / "other").c_str()));
}

TEST_F(HeldInstallerOnDisk, IsNotHeldWhileAnotherCouldChangeIt) {
    for (const DWORD access : changes) {
        const FileHandle other = openShared(file(), access);
        ASSERT_TRUE(other);
        EXPECT_FALSE(holdFile(file().wstring())) << access;
    }
    {
        const FileHandle other = openShared(folder(), DELETE);
        ASSERT_TRUE(other);
        EXPECT_FALSE(holdFile(file().wstring()));
    }
    EXPECT_TRUE(holdFile(file().wstring()));
}

TEST_F(HeldInstallerOnDisk, WhatIsNoFileIsNotHeld) {
    EXPECT_FALSE(holdFile((folder() / "missing.exe").wstring()));
    EXPECT_FALSE(holdFile((root() / "missing" / "installer.exe").wstring()));
    EXPECT_FALSE(holdFile(folder().wstring()));
    EXPECT_FALSE(holdFile(L"installer.exe"));
    EXPECT_FALSE(holdFile(L""));
    // Nothing of it stays behind.
    EXPECT_TRUE(DeleteFileW(file().c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder().c_str()));
}

// Wine opens the links of the system below it as what they lead to, so that a link in place of the
// folder is nothing that could be seen here.
TEST_F(HeldInstallerOnDisk, ALinkInPlaceOfTheFileIsNotHeld) {
    if (!link("../forged.exe", "Ravelin-update-1/link.exe"))
        GTEST_SKIP() << "no links to be had here";
    EXPECT_FALSE(holdFile((folder() / "link.exe").wstring()));
}

// The steps of a download on this machine but for the network, attacked while the digest is made.
TEST_F(HeldInstallerOnDisk, IsHeldFromBeforeTheDigestUntilItIsDiscarded) {
    DownloadMachine machine = thisMachine();
    machine.temporaryFolder = [&] { return root().wstring() + L"\\"; };
    machine.createSecureFolder = [&](const std::wstring& path) {
        return MoveFileW(folder().c_str(), path.c_str()) != FALSE;
    };
    machine.download = [](const std::string&, const std::wstring&, const ProgressSink&) {
        return true;
    };
    DWORD deleted = ERROR_SUCCESS;
    DWORD replaced = ERROR_SUCCESS;
    const auto attackPath = [&](const std::wstring& path) {
        deleted = errorOf(DeleteFileW(path.c_str()));
        replaced = errorOf(MoveFileExW(forged().c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING));
    };
    machine.fileDigest = [&](const std::wstring& path) {
        attackPath(path);
        return FileSha256Hex(path);
    };
    UpdateManifestInfo manifest;
    manifest.url = "https://ravelin.example/setup.exe";
    manifest.sha256 = Sha256Hex("genuine");
    HeldInstaller installer;
    EXPECT_EQ(downloadAndVerify(manifest, {}, installer, machine), "");
    EXPECT_NE(deleted, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_NE(replaced, static_cast<DWORD>(ERROR_SUCCESS));

    const std::wstring path = installer.path();
    attackPath(path);
    EXPECT_NE(deleted, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_NE(replaced, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(FileSha256Hex(path), manifest.sha256);

    discardInstaller(std::move(installer));
    EXPECT_FALSE(fs::exists(path));
    EXPECT_FALSE(fs::exists(fs::path(path).parent_path()));
}

TEST_F(HeldInstallerOnDisk, IsStartedWhileItIsHeld) {
    const fs::path standIn = fs::path(test::ownPath()).parent_path() / "stand_in_installer.exe";
    fs::copy_file(standIn, file(), fs::copy_options::overwrite_existing);
    const fs::path log = root() / "command.txt";
    SetEnvironmentVariableW(L"RAVELIN_INSTALLER_LOG", log.c_str());
    HeldInstaller installer(file().wstring(), holdFile(file().wstring()));
    ASSERT_TRUE(installer);
    EXPECT_TRUE(startInstaller(installer.path()));
    SetEnvironmentVariableW(L"RAVELIN_INSTALLER_LOG", nullptr);
    EXPECT_EQ(attack(), Words{});
    EXPECT_TRUE(
        test::eventually([&] { return test::readBytes(log.string()).ends_with("/RVNUPDATE=1"); }));
    // Once it has ended, nothing but the hold keeps it.
    EXPECT_EQ(attack(), Words{});
    installer.release();
    EXPECT_TRUE(test::eventually([&] { return DeleteFileW(file().c_str()) != FALSE; }));
}

}  // namespace
}  // namespace ravelin
