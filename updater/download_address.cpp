#include "updater/download_address.h"

#include <algorithm>
#include <string>

#include "product.h"

namespace ravelin {

namespace {

// Only ASCII: host names have nothing else, and no locale may decide here.
char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool IsAllowedDownloadUrl(std::string_view url) {
    if (!url.starts_with(httpsPrefix)) return false;
    url.remove_prefix(httpsPrefix.size());
    std::string host(url.substr(0, url.find_first_of("/?#")));
    std::transform(host.begin(), host.end(), host.begin(), lowered);
    return host == product::webHost || host == product::apiHost;
}

}  // namespace ravelin
