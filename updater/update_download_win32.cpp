#include <windows.h>

#include <memory>
#include <optional>

#include "updater/admin_only_security_win32.h"
#include "updater/file_hold_win32.h"
#include "updater/hash.h"
#include "updater/https_win32.h"
#include "updater/random_bytes.h"
#include "updater/temporary_folder.h"
#include "updater/update_download.h"

namespace ravelin {

namespace {

bool createSecureFolder(const std::wstring& folder) {
    AdminOnlySecurity security;
    return security && CreateDirectoryW(folder.c_str(), &security.attributes());
}

}  // namespace

DownloadMachine thisMachine() {
    const auto fileSecurity = std::make_shared<std::optional<AdminOnlySecurity>>();
    return {
        temporaryFolder,
        randomBytes,
        createSecureFolder,
        [fileSecurity] {
            fileSecurity->emplace();
            return static_cast<bool>(**fileSecurity);
        },
        [fileSecurity](const std::string& url, const std::wstring& path, const ProgressSink& sink) {
            return DownloadToFile(url, path, (*fileSecurity)->attributes(), sink);
        },
        holdFile,
        FileSha256Hex,
        [](const std::wstring& path) { DeleteFileW(path.c_str()); },
        [](const std::wstring& path) { RemoveDirectoryW(path.c_str()); },
    };
}

std::string DownloadAndVerify(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              HeldInstaller& installer) {
    return downloadAndVerify(manifest, sink, installer, thisMachine());
}

void discardInstaller(HeldInstaller installer) {
    const std::wstring path = installer.release();
    DeleteFileW(path.c_str());
    RemoveDirectoryW(path.substr(0, path.find_last_of(L'\\')).c_str());
}

}  // namespace ravelin
