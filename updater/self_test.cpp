#include "updater/self_test.h"

#include <fstream>
#include <iterator>

#include "updater/download_address.h"
#include "updater/hex.h"
#include "updater/host_checks.h"
#include "updater/member_extractor.h"
#include "updater/signature.h"

namespace ravelin {

namespace {

// The report, and whether everything in it passed.
class Report {
  public:
    explicit Report(std::string& text) : text_(text) {}

    void add(bool passed, const std::string& label) {
        text_ += (passed ? "PASS " : "FAIL ") + label + '\n';
        allPassed_ = allPassed_ && passed;
    }
    bool allPassed() const { return allPassed_; }

  private:
    std::string& text_;
    bool allPassed_ = true;
};

// The test key so far, and how many cases were seen.
struct Progress {
    ManifestVerifier verifier;
    std::size_t cases = 0;
};

// The members stand as they are: a case is free to break the manifest with them.
std::string manifestOf(const std::string& line) {
    std::string text = "{";
    for (const auto* key : {"tier", "version", "url", "sha256", "sig"}) {
        if (text.size() > 1) text += ',';
        text.append("\"").append(key).append("\":\"").append(stringMember(line, key)).append("\"");
    }
    return text + '}';
}

void checkKey(const std::string& line, const KeyImporter& importKey, Progress& progress,
              Report& report) {
    const std::string blob = decodeHex(stringMember(line, "hex"));
    ManifestVerifier verifier = hasKeyBlobMagic(blob) ? importKey(blob) : ManifestVerifier();
    report.add(static_cast<bool>(verifier), "test key loads as a valid P-256 public key");
    if (verifier) progress.verifier = std::move(verifier);
}

void checkCase(const std::string& line, Progress& progress, Report& report) {
    ++progress.cases;
    if (!progress.verifier) {
        report.add(false, "case before a valid key line - skipped");
        return;
    }
    UpdateManifestInfo ignored;
    const bool accepted =
        EvaluateManifest(progress.verifier, manifestOf(line), stringMember(line, "expectedTier"),
                         stringMember(line, "ownVersion"), ignored);
    std::string name = stringMember(line, "name");
    if (name.empty()) name = "case " + std::to_string(progress.cases);
    report.add(accepted == booleanMember(line, "expect"), name);
}

}  // namespace

bool checkUpdateVectors(std::string_view vectors, const KeyImporter& importKey,
                        std::string& report) {
    Report lines(report);
    Progress progress;
    while (!vectors.empty()) {
        const std::size_t end = vectors.find('\n');
        const std::string line(vectors.substr(0, end));
        vectors.remove_prefix(end == std::string_view::npos ? vectors.size() : end + 1);
        const std::string kind = stringMember(line, "line");
        if (kind == "key") checkKey(line, importKey, progress, lines);
        if (kind == "case") checkCase(line, progress, lines);
    }
    if (progress.cases == 0) lines.add(false, "no cases found in vectors file");
    for (const HostCheck& check : hostChecks())
        lines.add(IsAllowedDownloadUrl(check.url) == check.allowed, check.label);
    return lines.allPassed();
}

bool runUpdateSelfTest(const std::string& vectorsPath, const KeyImporter& importKey,
                       std::string& report) {
    std::ifstream file(vectorsPath, std::ios::binary);
    if (!file) {
        report = "FAIL could not open vectors file: " + vectorsPath + '\n';
        return false;
    }
    const std::string vectors{std::istreambuf_iterator<char>(file), {}};
    report.clear();
    return checkUpdateVectors(vectors, importKey, report);
}

}  // namespace ravelin
