#include "updater/manifest.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "product.h"
#include "updater/download_address.h"
#include "updater/member_extractor.h"
#include "updater/version.h"

namespace ravelin {

namespace {

constexpr std::size_t sha256Digits = 64;

UpdateManifestInfo readMembers(const std::string& text) {
    return {stringMember(text, "tier"), stringMember(text, "version"), stringMember(text, "url"),
            stringMember(text, "sha256"), stringMember(text, "sig")};
}

bool isComplete(const UpdateManifestInfo& manifest) {
    return !manifest.tier.empty() && !manifest.version.empty() && !manifest.url.empty() &&
           !manifest.sha256.empty() && !manifest.sig.empty();
}

bool isKnownTier(std::string_view tier) {
    return std::find(std::begin(product::tierWords), std::end(product::tierWords), tier) !=
           std::end(product::tierWords);
}

bool isDigest(std::string_view text) {
    return text.size() == sha256Digits &&
           text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// Printable ASCII without blanks. "|" separates the fields of the signed message, so none of them
// may hold it; the others have grammars that rule it out.
bool isUnambiguousUrl(std::string_view url) {
    return std::all_of(url.begin(), url.end(),
                       [](char c) { return c > ' ' && c < 127 && c != '|'; });
}

bool offersUpdate(const std::string& offered, const std::string& own) {
    const Version offeredVersion = ParseVersion(offered);
    const Version ownVersion = ParseVersion(own);
    return offeredVersion.valid && ownVersion.valid && isNewer(offeredVersion, ownVersion);
}

}  // namespace

std::string signedMessage(const UpdateManifestInfo& manifest) {
    return "RVN-UPDATE-1|" + manifest.tier + '|' + manifest.version + '|' + manifest.url + '|' +
           manifest.sha256;
}

bool EvaluateManifest(const ManifestVerifier& verifier, const std::string& manifestText,
                      const std::string& expectedTier, const std::string& ownVersion,
                      UpdateManifestInfo& out) {
    UpdateManifestInfo manifest = readMembers(manifestText);
    if (!isComplete(manifest) || !isKnownTier(manifest.tier)) return false;
    if (!ParseVersion(manifest.version).valid) return false;
    if (!isDigest(manifest.sha256)) return false;
    if (!isUnambiguousUrl(manifest.url)) return false;
    if (!verifier(signedMessage(manifest), manifest.sig)) return false;
    if (manifest.tier != expectedTier) return false;
    if (!offersUpdate(manifest.version, ownVersion)) return false;
    if (!IsAllowedDownloadUrl(manifest.url)) return false;
    out = std::move(manifest);
    return true;
}

}  // namespace ravelin
