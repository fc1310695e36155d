// A version is valid exactly when it fits the grammar, and the order has no cycles.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <string>

#include "updater/version.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ravelin;
    if (size > 64) return 0;
    const std::string text(reinterpret_cast<const char*>(data), size);
    static const std::regex grammar(R"([0-9]{1,5}\.[0-9]{1,5}\.[0-9]{1,5}(-beta\.[0-9]{1,5})?)");
    const std::size_t split = text.find(' ');
    const std::string first = text.substr(0, split);
    const Version offered = ParseVersion(first);
    if (offered.valid != std::regex_match(first, grammar)) std::abort();
    if (!offered.valid || split == std::string::npos) return 0;
    const Version own = ParseVersion(text.substr(split + 1));
    if (own.valid && isNewer(offered, own) && isNewer(own, offered)) std::abort();
    if (isNewer(offered, offered)) std::abort();
    return 0;
}
