// Whatever a vectors file holds, the report has whole PASS and FAIL lines and agrees with the
// verdict.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "updater/host_checks.h"
#include "updater/self_test.h"

namespace {

ravelin::ManifestVerifier importKey(std::string_view blob) {
    if (blob.size() < 5) return {};
    const char first = blob[4];
    return [first](const std::string&, const std::string& sigHex) {
        return !sigHex.empty() && sigHex.front() == first;
    };
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ravelin;
    const std::string_view vectors(reinterpret_cast<const char*>(data), size);
    std::string report;
    const bool passed = checkUpdateVectors(vectors, importKey, report);
    if (!report.ends_with('\n')) std::abort();
    if (!report.starts_with("PASS ") && !report.starts_with("FAIL ")) std::abort();
    const bool failed = report.starts_with("FAIL ") || report.find("\nFAIL ") != std::string::npos;
    // A case may be named so that its own line seems to hold a failure, never the other way round.
    if (!passed && !failed) std::abort();
    if (report.size() < hostChecks().size() * sizeof "PASS ") std::abort();
    return 0;
}
