// Fetches the installer that an accepted manifest names and proves that it is the right one.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "updater/download_meter.h"
#include "updater/manifest.h"

namespace ravelin {

// A downloaded installer that nobody can write, delete or replace, nor move with its folder, for as
// long as the object lives. It goes from hand to hand until the installer is started or discarded.
class HeldInstaller {
  public:
    HeldInstaller() = default;
    // `hold` keeps the others away until its last copy is gone; null makes an object without a
    // file.
    HeldInstaller(std::wstring path, std::shared_ptr<void> hold)
        : path_(std::move(path)), hold_(std::move(hold)) {}
    HeldInstaller(HeldInstaller&&) = default;
    HeldInstaller& operator=(HeldInstaller&&) = default;

    // Whether there is a file.
    explicit operator bool() const { return hold_ != nullptr; }
    const std::wstring& path() const { return path_; }

    // Lets go of the file, so that it can be deleted, and gives its path.
    std::wstring release() {
        hold_.reset();
        return std::move(path_);
    }

  private:
    std::wstring path_;
    std::shared_ptr<void> hold_;
};

// What a download needs of the machine.
struct DownloadMachine {
    // With its trailing backslash; nothing when there is none.
    std::function<std::optional<std::wstring>()> temporaryFolder;
    // Empty on failure.
    std::function<std::string(std::size_t count)> randomBytes;
    // Makes the folder, open to administrators and the system alone; false when it cannot.
    std::function<bool(const std::wstring& folder)> createSecureFolder;
    // Makes ready what protects the file; false when it cannot.
    std::function<bool()> prepareFileSecurity;
    std::function<bool(const std::string& url, const std::wstring& path, const ProgressSink& sink)>
        download;
    // Keeps everybody from exchanging the file until the last copy of the result is gone; null when
    // it cannot, as while somebody else has the file open to write.
    std::function<std::shared_ptr<void>(const std::wstring& path)> holdFile;
    // SHA-256 in lower-case hexadecimal, empty on failure.
    std::function<std::string(const std::wstring& path)> fileDigest;
    std::function<void(const std::wstring& path)> deleteFile;
    std::function<void(const std::wstring& path)> removeFolder;
};

// Downloads the installer into a fresh folder, holds it and compares its digest. Returns the empty
// text and sets `installer`, or a message for the user; then no file and no folder is left.
std::string downloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              HeldInstaller& installer, const DownloadMachine& machine);

DownloadMachine thisMachine();

// The same on this machine. Blocks; the sink is called on the calling thread.
std::string DownloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              HeldInstaller& installer);

// Lets go of an installer that was downloaded and deletes it with the folder that it lies in, as
// far as they are there.
void discardInstaller(HeldInstaller installer);

}  // namespace ravelin
