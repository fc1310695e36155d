#include "updater/download_address.h"

#include <gtest/gtest.h>

#include <string>

#include "product.h"
#include "updater/host_checks.h"

namespace ravelin {
namespace {

const std::string web = product::webHost;
const std::string api = product::apiHost;

std::string upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

TEST(DownloadAddress, TheVendorsTwoHostsAreAllowed) {
    EXPECT_TRUE(IsAllowedDownloadUrl("https://" + web + "/setup.exe"));
    EXPECT_TRUE(IsAllowedDownloadUrl("https://" + api + "/download/setup.exe"));
}

TEST(DownloadAddress, TheHostEndsAtPathQueryFragmentOrEnd) {
    for (const std::string rest : {"", "/", "/a@b:8/c", "?q=1", "#top", "?a@b", "/../..//x"})
        EXPECT_TRUE(IsAllowedDownloadUrl("https://" + web + rest)) << rest;
}

TEST(DownloadAddress, TheHostMayBeWrittenInUpperCase) {
    EXPECT_TRUE(IsAllowedDownloadUrl("https://" + upper(web) + "/Setup.exe"));
    EXPECT_TRUE(IsAllowedDownloadUrl("https://" + upper(api)));
}

TEST(DownloadAddress, ThePrefixMustBeHttpsInLowerCase) {
    for (const std::string prefix : {"http://", "HTTPS://", "Https://", "https:/", "https:", "//",
                                     "", " https://", "ftp://", "file://", "https:\\\\"})
        EXPECT_FALSE(IsAllowedDownloadUrl(prefix + web + "/setup.exe")) << prefix;
}

TEST(DownloadAddress, EverythingBesideTheExactHostIsRejected) {
    for (const std::string& host : {
             web + ".unrelated.example",
             web + "@unrelated.example",
             "user@" + web,
             "user:password@" + web,
             web + ":443",
             web + ":8443",
             web + ":",
             web + ".",
             "." + web,
             "www." + web,
             "evil" + web,
             web + "evil",
             web + "\\.unrelated.example",
             web + ";unrelated.example",
             web + "%2eunrelated.example",
             web + "%00.unrelated.example",
             web + " ",
             " " + web,
             web + "," + api,
             web.substr(1),
             web.substr(0, web.size() - 1),
             std::string("unrelated.example"),
             std::string("127.0.0.1"),
             std::string("[::1]"),
             std::string(),
         })
        EXPECT_FALSE(IsAllowedDownloadUrl("https://" + host + "/setup.exe")) << host;
}

TEST(DownloadAddress, AZeroByteDoesNotEndTheHost) {
    EXPECT_FALSE(IsAllowedDownloadUrl("https://" + web + '\0' + ".unrelated.example"));
}

TEST(DownloadAddress, NothingIsFoldedButAscii) {
    // U+0130 and U+212A fold to "i" and "k" in some locales.
    std::string host = web;
    const auto at = host.find('i');
    ASSERT_NE(at, std::string::npos);
    EXPECT_FALSE(IsAllowedDownloadUrl("https://" + host.replace(at, 1, "\xC4\xB0") + "/"));
}

TEST(DownloadAddress, TheBuiltInChecksHold) {
    EXPECT_EQ(hostChecks().size(), 8U);
    for (const HostCheck& check : hostChecks())
        EXPECT_EQ(IsAllowedDownloadUrl(check.url), check.allowed) << check.label;
}

}  // namespace
}  // namespace ravelin
