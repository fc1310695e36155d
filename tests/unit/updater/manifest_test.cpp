#include "updater/manifest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "product.h"

namespace ravelin {
namespace {

UpdateManifestInfo goodManifest() {
    return {"home", "1.0.2", std::string("https://") + product::webHost + "/setup-1.0.2.exe",
            std::string(60, 'a') + "0189", std::string(128, '7')};
}

std::string textOf(const UpdateManifestInfo& m) {
    return R"({"tier":")" + m.tier + R"(","version":")" + m.version + R"(","url":")" + m.url +
           R"(","sha256":")" + m.sha256 + R"(","sig":")" + m.sig + R"("})";
}

// Judges for a "home" build of version 1.0.1 with a verifier that accepts every signature.
struct Judge {
    bool accepts(const std::string& text) {
        return EvaluateManifest(
            [this](const std::string& message, const std::string& sig) {
                verified.push_back(message + " # " + sig);
                return signatureHolds;
            },
            text, "home", ownVersion, out);
    }
    bool accepts(const UpdateManifestInfo& manifest) { return accepts(textOf(manifest)); }

    bool signatureHolds = true;
    std::string ownVersion = "1.0.1";
    std::vector<std::string> verified;
    UpdateManifestInfo out{"old", "old", "old", "old", "old"};
};

const UpdateManifestInfo untouched{"old", "old", "old", "old", "old"};

// The manifest with one change is refused, before or after its signature was looked at.
void expectRefused(const UpdateManifestInfo& manifest, bool verifierAsked) {
    Judge judge;
    EXPECT_FALSE(judge.accepts(manifest)) << textOf(manifest);
    EXPECT_EQ(judge.verified.size(), verifierAsked ? 1U : 0U) << textOf(manifest);
    EXPECT_EQ(judge.out, untouched);
}

template <class Change>
UpdateManifestInfo changed(Change change) {
    UpdateManifestInfo manifest = goodManifest();
    change(manifest);
    return manifest;
}

TEST(Manifest, AGoodOneIsAcceptedWithItsTexts) {
    Judge judge;
    EXPECT_TRUE(judge.accepts(goodManifest()));
    EXPECT_EQ(judge.out, goodManifest());
}

TEST(Manifest, TheSignatureCoversOneLineOfFourFields) {
    Judge judge;
    const UpdateManifestInfo m = goodManifest();
    judge.accepts(m);
    ASSERT_EQ(judge.verified.size(), 1U);
    EXPECT_EQ(judge.verified[0],
              "RVN-UPDATE-1|home|1.0.2|" + m.url + "|" + m.sha256 + " # " + m.sig);
}

TEST(Manifest, MembersMayStandInAnyOrderBesideOthers) {
    const UpdateManifestInfo m = goodManifest();
    Judge judge;
    EXPECT_TRUE(judge.accepts("{\n \"notes\": [1, {}],\n \"sig\": \"" + m.sig +
                              "\",\n \"sha256\": \"" + m.sha256 + "\",\n \"url\": \"" + m.url +
                              "\",\n \"version\": \"1.0.2\",\n \"tier\": \"home\"\n}\n"));
    EXPECT_EQ(judge.out, m);
}

TEST(Manifest, EveryMemberMustBeThere) {
    expectRefused(changed([](auto& m) { m.tier.clear(); }), false);
    expectRefused(changed([](auto& m) { m.version.clear(); }), false);
    expectRefused(changed([](auto& m) { m.url.clear(); }), false);
    expectRefused(changed([](auto& m) { m.sha256.clear(); }), false);
    expectRefused(changed([](auto& m) { m.sig.clear(); }), false);
    Judge judge;
    EXPECT_FALSE(judge.accepts(std::string()));
    EXPECT_FALSE(judge.accepts(std::string("{}")));
    EXPECT_FALSE(judge.accepts(std::string("<html>404</html>")));
    EXPECT_TRUE(judge.verified.empty());
}

TEST(Manifest, AnUnknownTierIsRefusedFirst) {
    for (const std::string tier : {"gold", "Home", "HOME", "home ", "hom"})
        expectRefused(changed([&](auto& m) { m.tier = tier; }), false);
}

TEST(Manifest, AnotherTierIsRefusedInSpiteOfItsSignature) {
    for (const std::string tier : product::tierWords)
        if (tier != "home") expectRefused(changed([&](auto& m) { m.tier = tier; }), true);
}

TEST(Manifest, AnInvalidVersionIsRefusedBeforeTheSignature) {
    for (const std::string version : {"1.0", "v1.0.2", "1.0.2-rc.1", "1.0.123456", "latest"})
        expectRefused(changed([&](auto& m) { m.version = version; }), false);
}

TEST(Manifest, ADigestIs64LowerCaseDigits) {
    const std::string good = goodManifest().sha256;
    for (const std::string& digest :
         {good.substr(1), good + '0', 'A' + good.substr(1), 'g' + good.substr(1),
          ' ' + good.substr(1), std::string(64, 'F'), std::string("0")})
        expectRefused(changed([&](auto& m) { m.sha256 = digest; }), false);
}

TEST(Manifest, AnUrlIsPrintableAsciiWithoutBlankOrBar) {
    const std::string good = goodManifest().url;
    for (const std::string& tail :
         {std::string(" "), std::string("|"), std::string("\x7F"), std::string("\x1F"),
          std::string("\xC3\xA9"), std::string("\\n"), std::string("\\u0000"),
          std::string("\\u007c"), std::string("\\u00a0")})
        expectRefused(changed([&](auto& m) { m.url = good + tail; }), false);
    Judge judge;
    EXPECT_TRUE(judge.accepts(changed([&](auto& m) { m.url = good + "!{}~z"; })));
}

TEST(Manifest, AWrongSignatureIsRefused) {
    Judge judge;
    judge.signatureHolds = false;
    EXPECT_FALSE(judge.accepts(goodManifest()));
    EXPECT_EQ(judge.verified.size(), 1U);
    EXPECT_EQ(judge.out, untouched);
}

TEST(Manifest, OnlyANewerVersionIsAnUpdate) {
    for (const std::string version :
         {"1.0.1", "1.0.0", "0.9.9", "1.0.1-beta.3", "01.0.1", "0.99999.99999"})
        expectRefused(changed([&](auto& m) { m.version = version; }), true);
    for (const std::string version : {"1.0.2", "1.1.0", "2.0.0", "1.0.2-beta.1"}) {
        Judge judge;
        EXPECT_TRUE(judge.accepts(changed([&](auto& m) { m.version = version; }))) << version;
    }
}

TEST(Manifest, TheReleaseUpdatesItsPreRelease) {
    Judge judge;
    judge.ownVersion = "1.0.2-beta.3";
    EXPECT_TRUE(judge.accepts(goodManifest()));
}

TEST(Manifest, ABuildWithoutAProperVersionHasNoUpdates) {
    Judge judge;
    judge.ownVersion = "dev";
    EXPECT_FALSE(judge.accepts(goodManifest()));
    EXPECT_EQ(judge.verified.size(), 1U);
}

TEST(Manifest, AnotherHostIsRefusedInSpiteOfItsSignature) {
    const std::string web = product::webHost;
    for (const std::string& url :
         {"http://" + web + "/a.exe", "HTTPS://" + web + "/a.exe", "https://" + web + ":8443/a.exe",
          "https://" + web + "@unrelated.example/a.exe", std::string("https://unrelated.example/")})
        expectRefused(changed([&](auto& m) { m.url = url; }), true);
}

TEST(Manifest, TheFirstOfTwoEqualMembersIsSignedAndUsed) {
    const UpdateManifestInfo m = goodManifest();
    Judge judge;
    std::string text = textOf(m);
    text.back() = ',';
    text += R"("url":"https://unrelated.example/evil.exe","version":"9.9.9"})";
    EXPECT_TRUE(judge.accepts(text));
    EXPECT_EQ(judge.out, m);
}

TEST(Manifest, EscapesAreResolvedBeforeTheSignatureIsChecked) {
    UpdateManifestInfo written = goodManifest();
    written.tier = R"(\u0068ome)";
    written.url.replace(0, 8, R"(https:\/\/)");
    Judge judge;
    EXPECT_TRUE(judge.accepts(written));
    EXPECT_EQ(judge.out, goodManifest());
}

}  // namespace
}  // namespace ravelin
