// Fetches the installer that an accepted manifest names and proves that it is the right one.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "updater/download_meter.h"
#include "updater/manifest.h"

namespace ravelin {

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
    // SHA-256 in lower-case hexadecimal, empty on failure.
    std::function<std::string(const std::wstring& path)> fileDigest;
    std::function<void(const std::wstring& path)> deleteFile;
    std::function<void(const std::wstring& path)> removeFolder;
};

// Downloads the installer into a fresh folder and compares its digest. Returns the empty text and
// sets `installerPath`, or a message for the user; then no file and no folder is left.
std::string downloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              std::wstring& installerPath, const DownloadMachine& machine);

// The same on this machine. Blocks; the sink is called on the calling thread.
std::string DownloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              std::wstring& installerPath);

// Deletes an installer that was downloaded and the folder that holds it, as far as they are there.
void discardInstaller(const std::wstring& installerPath);

}  // namespace ravelin
