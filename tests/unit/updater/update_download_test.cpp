#include "updater/update_download.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace ravelin {
namespace {

const std::string digest = "0123456789abcdef" + std::string(48, 'c');
const std::wstring folder = L"T:\\Temp\\Ravelin-update-00ff100f0a0b0c0d0102030405060708";
const std::wstring installer = folder + L"\\installer.exe";

// A machine that notes what is asked of it and keeps what exists on its disk.
struct Machine {
    DownloadMachine machine() {
        return {
            [this] {
                steps.push_back("temporary folder");
                return temporaryFolder;
            },
            [this](std::size_t count) {
                steps.push_back("random " + std::to_string(count));
                return random;
            },
            [this](const std::wstring& path) {
                steps.push_back("folder");
                if (folderWorks) disk.insert(path);
                return folderWorks;
            },
            [this] {
                steps.push_back("file security");
                return fileSecurityWorks;
            },
            [this](const std::string& url, const std::wstring& path, const ProgressSink& sink) {
                steps.push_back("download " + url);
                disk.insert(path);
                return sink(0, 9) && downloadWorks;
            },
            [this](const std::wstring& path) -> std::shared_ptr<void> {
                steps.push_back("hold");
                if (!holdWorks || !disk.contains(path)) return nullptr;
                held.insert(path);
                return {this, [path](Machine* machine) { machine->held.erase(path); }};
            },
            [this](const std::wstring& path) {
                steps.push_back(held.contains(path) ? "digest" : "digest of a free file");
                return disk.contains(path) ? fileDigest : "missing";
            },
            // As on a real disk, what is held stays.
            [this](const std::wstring& path) {
                if (!held.contains(path)) disk.erase(path);
            },
            [this](const std::wstring& path) {
                const bool isEmpty = std::none_of(disk.begin(), disk.end(), [&](const auto& entry) {
                    return entry.starts_with(path + L"\\");
                });
                if (isEmpty) disk.erase(path);
            },
        };
    }

    std::string run() {
        return downloadAndVerify(
            manifest,
            [this](std::uint64_t done, std::uint64_t total) {
                reported.emplace_back(done, total);
                return goOn;
            },
            installer, machine());
    }

    UpdateManifestInfo manifest{"home", "1.0.2", "https://ravelin.example/setup.exe", digest, "00"};
    std::optional<std::wstring> temporaryFolder = L"T:\\Temp\\";
    std::string random{"\x00\xFF\x10\x0F\x0A\x0B\x0C\x0D\x01\x02\x03\x04\x05\x06\x07\x08", 16};
    bool folderWorks = true;
    bool fileSecurityWorks = true;
    bool downloadWorks = true;
    bool holdWorks = true;
    bool goOn = true;
    std::string fileDigest = digest;

    std::vector<std::string> steps;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> reported;
    std::set<std::wstring> disk;
    std::set<std::wstring> held;
    HeldInstaller installer;
};

// The message, after nothing but these steps and with nothing left on the disk.
void expectFailure(Machine& machine, const std::string& message,
                   const std::vector<std::string>& steps) {
    EXPECT_EQ(machine.run(), message);
    EXPECT_EQ(machine.steps, steps);
    EXPECT_TRUE(machine.disk.empty());
    EXPECT_TRUE(machine.held.empty());
    EXPECT_FALSE(machine.installer);
}

TEST(UpdateDownload, LeavesTheVerifiedInstallerInAFolderOfItsOwn) {
    Machine machine;
    EXPECT_EQ(machine.run(), "");
    EXPECT_EQ(machine.installer.path(), installer);
    EXPECT_EQ(machine.disk, (std::set<std::wstring>{folder, installer}));
    EXPECT_EQ(machine.steps, (std::vector<std::string>{
                                 "temporary folder", "random 16", "folder", "file security",
                                 "download https://ravelin.example/setup.exe", "hold", "digest"}));
    EXPECT_THAT(machine.reported, testing::ElementsAre(testing::Pair(0, 9)));
}

TEST(UpdateDownload, TheVerifiedInstallerStaysHeldFromHandToHand) {
    Machine machine;
    EXPECT_EQ(machine.run(), "");
    HeldInstaller other = std::move(machine.installer);
    EXPECT_FALSE(machine.installer);
    EXPECT_EQ(machine.held, (std::set<std::wstring>{installer}));
    EXPECT_EQ(other.release(), installer);
    EXPECT_TRUE(machine.held.empty());
    EXPECT_FALSE(other);
}

TEST(UpdateDownload, AnInstallerThatNobodyTakesIsLetGoOf) {
    Machine machine;
    EXPECT_EQ(machine.run(), "");
    machine.installer = HeldInstaller();
    EXPECT_TRUE(machine.held.empty());
    EXPECT_EQ(machine.disk.size(), 2U);
}

TEST(UpdateDownload, ADigestInUpperCaseMatchesAsWell) {
    Machine machine;
    std::transform(digest.begin(), digest.end(), machine.manifest.sha256.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    EXPECT_EQ(machine.run(), "");
}

TEST(UpdateDownload, OnlyHttpsIsALink) {
    for (const std::string url : {"http://ravelin.example/setup.exe", "HTTPS://ravelin.example/",
                                  "ravelin.example/setup.exe", "file:///setup.exe", ""}) {
        Machine machine;
        machine.manifest.url = url;
        expectFailure(machine, "Update failed: the download link was not valid.", {});
    }
}

TEST(UpdateDownload, WithoutATemporaryFolderNothingIsFetched) {
    Machine machine;
    machine.temporaryFolder.reset();
    expectFailure(machine, "Update failed: could not find a temporary folder to download to.",
                  {"temporary folder"});
}

TEST(UpdateDownload, WithoutRandomBytesThereIsNoFolder) {
    for (const std::size_t count : {0U, 15U}) {
        Machine machine;
        machine.random.resize(count);
        expectFailure(machine, "Update failed: could not generate a secure folder name.",
                      {"temporary folder", "random 16"});
    }
}

TEST(UpdateDownload, AFolderThatCannotBeMadeEndsIt) {
    Machine machine;
    machine.folderWorks = false;
    expectFailure(machine, "Update failed: could not create a secure download folder.",
                  {"temporary folder", "random 16", "folder"});
}

TEST(UpdateDownload, WithoutFileSecurityTheFolderGoesAgain) {
    Machine machine;
    machine.fileSecurityWorks = false;
    expectFailure(machine, "Update failed: could not prepare a secure download folder.",
                  {"temporary folder", "random 16", "folder", "file security"});
}

const std::string downloadMessage =
    "Update failed: could not download the new installer (or it was larger than expected). Check "
    "your internet connection and try again.";

TEST(UpdateDownload, AFailedDownloadLeavesNothing) {
    Machine machine;
    machine.downloadWorks = false;
    expectFailure(machine, downloadMessage,
                  {"temporary folder", "random 16", "folder", "file security",
                   "download https://ravelin.example/setup.exe"});
}

TEST(UpdateDownload, AStoppedDownloadLeavesNothing) {
    Machine machine;
    machine.goOn = false;
    EXPECT_EQ(machine.run(), downloadMessage);
    EXPECT_TRUE(machine.disk.empty());
}

TEST(UpdateDownload, AnotherDigestOrNoneInstallsNothing) {
    for (const std::string& wrong : {std::string(), std::string(64, '0'), digest + '0'}) {
        Machine machine;
        machine.fileDigest = wrong;
        expectFailure(machine,
                      "Update failed: the downloaded file did not match what was expected, so "
                      "nothing was installed.",
                      {"temporary folder", "random 16", "folder", "file security",
                       "download https://ravelin.example/setup.exe", "hold", "digest"});
    }
}

TEST(UpdateDownload, AFileThatCannotBeHeldInstallsNothing) {
    Machine machine;
    machine.holdWorks = false;
    expectFailure(machine,
                  "Update failed: the downloaded file did not match what was expected, so nothing "
                  "was installed.",
                  {"temporary folder", "random 16", "folder", "file security",
                   "download https://ravelin.example/setup.exe", "hold"});
}

TEST(UpdateDownload, NoDigestAtAllNeverMatches) {
    Machine machine;
    machine.manifest.sha256.clear();
    machine.fileDigest.clear();
    EXPECT_NE(machine.run(), "");
    EXPECT_TRUE(machine.disk.empty());
}

}  // namespace
}  // namespace ravelin
