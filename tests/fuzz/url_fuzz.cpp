// Whatever is allowed really names one of the two hosts and nothing beside it.
#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "product.h"
#include "updater/download_address.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ravelin;
    const std::string url(reinterpret_cast<const char*>(data), size);
    // Half of the inputs get the prefix and a host for free, so that the interesting part is
    // fuzzed.
    const std::string close = std::string("https://") + product::webHost + url;
    for (const std::string& candidate : {url, close}) {
        if (!IsAllowedDownloadUrl(candidate)) continue;
        std::string lower = candidate;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        const auto names = [&](const std::string& host) {
            const std::string start = "https://" + host;
            if (!lower.starts_with(start)) return false;
            return lower.size() == start.size() ||
                   std::string("/?#").find(lower[start.size()]) != std::string::npos;
        };
        if (!candidate.starts_with("https://")) std::abort();
        if (!names(product::webHost) && !names(product::apiHost)) std::abort();
    }
    return 0;
}
