// A manifest that is accepted keeps every promise that the download relies on, and a refused one
// leaves no trace.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "updater/download_address.h"
#include "updater/manifest.h"
#include "updater/version.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ravelin;
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::string signedLine;
    const auto verifier = [&](const std::string& message, const std::string&) {
        signedLine = message;
        return true;
    };
    UpdateManifestInfo out;
    if (!EvaluateManifest(verifier, text, "home", "1.0.1", out)) {
        if (!(out == UpdateManifestInfo{})) std::abort();
        return 0;
    }
    if (out.tier != "home" || out.sig.empty() || out.sha256.size() != 64) std::abort();
    if (!IsAllowedDownloadUrl(out.url)) std::abort();
    if (!isNewer(ParseVersion(out.version), ParseVersion("1.0.1"))) std::abort();
    if (signedLine != signedMessage(out)) std::abort();
    // Four separators: no field can be read as two.
    std::size_t bars = 0;
    for (const char c : signedLine)
        bars += c == '|' ? 1 : 0;
    if (bars != 4) std::abort();
    return 0;
}
