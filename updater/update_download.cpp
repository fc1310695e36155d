#include "updater/update_download.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "updater/download_address.h"
#include "updater/hex.h"

namespace ravelin {

namespace {

constexpr wchar_t folderPrefix[] = L"Ravelin-update-";
constexpr wchar_t installerName[] = L"\\installer.exe";
constexpr std::size_t folderNameBytes = 16;

constexpr char badLink[] = "Update failed: the download link was not valid.";
constexpr char noTemporaryFolder[] =
    "Update failed: could not find a temporary folder to download to.";
constexpr char noFolderName[] = "Update failed: could not generate a secure folder name.";
constexpr char noFolder[] = "Update failed: could not create a secure download folder.";
constexpr char noFileSecurity[] = "Update failed: could not prepare a secure download folder.";
constexpr char noDownload[] =
    "Update failed: could not download the new installer (or it was larger than expected). Check "
    "your internet connection and try again.";
constexpr char wrongDigest[] =
    "Update failed: the downloaded file did not match what was expected, so nothing was installed.";

std::wstring folderPath(const std::wstring& temporaryFolder, std::string_view random) {
    const std::string name = encodeHex(random);
    return temporaryFolder + folderPrefix + std::wstring(name.begin(), name.end());
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

// Removes the folder and what was downloaded into it unless it is kept.
class DownloadFolder {
  public:
    DownloadFolder(const DownloadMachine& machine, std::wstring path)
        : machine_(machine), path_(std::move(path)) {}
    DownloadFolder(const DownloadFolder&) = delete;
    DownloadFolder& operator=(const DownloadFolder&) = delete;
    ~DownloadFolder() {
        if (kept_) return;
        machine_.deleteFile(installer());
        machine_.removeFolder(path_);
    }

    std::wstring installer() const { return path_ + installerName; }
    void keep() { kept_ = true; }

  private:
    const DownloadMachine& machine_;
    std::wstring path_;
    bool kept_ = false;
};

}  // namespace

std::string downloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              HeldInstaller& installer, const DownloadMachine& machine) {
    if (!manifest.url.starts_with(httpsPrefix)) return badLink;
    const auto temporaryFolder = machine.temporaryFolder();
    if (!temporaryFolder) return noTemporaryFolder;
    const std::string random = machine.randomBytes(folderNameBytes);
    if (random.size() != folderNameBytes) return noFolderName;
    const std::wstring path = folderPath(*temporaryFolder, random);
    if (!machine.createSecureFolder(path)) return noFolder;

    DownloadFolder folder(machine, path);
    if (!machine.prepareFileSecurity()) return noFileSecurity;
    if (!machine.download(manifest.url, folder.installer(), sink)) return noDownload;
    // What is held from before its digest is known is still the same file when it is started. Goes
    // before the folder does, as nothing that is held can be deleted.
    HeldInstaller held(folder.installer(), machine.holdFile(folder.installer()));
    if (!held) return wrongDigest;
    const std::string digest = machine.fileDigest(held.path());
    if (digest.empty() || digest != lowered(manifest.sha256)) return wrongDigest;
    folder.keep();
    installer = std::move(held);
    return {};
}

}  // namespace ravelin
