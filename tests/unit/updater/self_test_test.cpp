#include "updater/self_test.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "product.h"
#include "updater/hex.h"

namespace ravelin {
namespace {

// A key imports when it ends in "key" and a name; its signature over a message is the message's
// own text behind that name, in hexadecimal.
ManifestVerifier importNamedKey(std::string_view blob) {
    const std::size_t at = blob.find("key");
    if (at == std::string_view::npos) return {};
    const std::string name(blob.substr(at));
    return [name](const std::string& message, const std::string& sigHex) {
        return decodeHex(sigHex) == name + message;
    };
}

std::string keyLine(const std::string& blob) {
    return R"({"line":"key","hex":")" + encodeHex(blob) + "\"}\n";
}

struct Case {
    std::string name;
    bool expect = true;
    std::string key = "key1";
    std::string tier = "home";
    std::string version = "1.0.2";
    std::string url = std::string("https://") + product::webHost + "/setup.exe";
    std::string expectedTier = "home";
    std::string ownVersion = "1.0.1";
};

std::string caseLine(const Case& c) {
    const std::string digest(64, 'a');
    const std::string message = signedMessage({c.tier, c.version, c.url, digest, {}});
    return R"({"line":"case","name":")" + c.name + R"(","expect":)" +
           (c.expect ? "true" : "false") + R"(,"expectedTier":")" + c.expectedTier +
           R"(","ownVersion":")" + c.ownVersion + R"(","tier":")" + c.tier + R"(","version":")" +
           c.version + R"(","url":")" + c.url + R"(","sha256":")" + digest + R"(","sig":")" +
           encodeHex(c.key + message) + "\"}\n";
}

const std::string goodKey = keyLine("ECS1key1");

const std::string hostLines = std::string("PASS host: ") + product::webHost +
                              " allowed\n"
                              "PASS host: " +
                              product::apiHost +
                              " allowed\n"
                              "PASS host: look-alike subdomain rejected\n"
                              "PASS host: userinfo trick rejected\n"
                              "PASS host: explicit port rejected\n"
                              "PASS host: other site rejected\n"
                              "PASS host: plain http rejected\n"
                              "PASS host: tester site rejected\n";

struct Outcome {
    bool passed = false;
    std::string report;
};

Outcome check(const std::string& vectors) {
    Outcome outcome;
    outcome.passed = checkUpdateVectors(vectors, importNamedKey, outcome.report);
    return outcome;
}

TEST(UpdateSelfTest, ReportsEveryKeyCaseAndHostInItsOrder) {
    const Outcome outcome =
        check(goodKey + caseLine({.name = "newer release"}) +
              caseLine({.name = "wrong key", .expect = false, .key = "key2"}) +
              caseLine({.name = "other tier", .expect = false, .tier = "studio"}));
    EXPECT_TRUE(outcome.passed);
    EXPECT_EQ(outcome.report,
              "PASS test key loads as a valid P-256 public key\n"
              "PASS newer release\n"
              "PASS wrong key\n"
              "PASS other tier\n" +
                  hostLines);
}

TEST(UpdateSelfTest, ACaseFailsWhenTheVerdictIsAnother) {
    const Outcome outcome =
        check(goodKey + caseLine({.name = "accepted", .expect = false}) +
              caseLine({.name = "refused", .expect = true, .version = "1.0.1"}));
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.report,
              "PASS test key loads as a valid P-256 public key\n"
              "FAIL accepted\n"
              "FAIL refused\n" +
                  hostLines);
}

TEST(UpdateSelfTest, ACaseBringsItsOwnTierAndVersion) {
    const Outcome outcome =
        check(goodKey + caseLine({.name = "studio", .tier = "studio", .expectedTier = "studio"}) +
              caseLine({.name = "older", .version = "0.9.0", .ownVersion = "0.8.9"}) +
              caseLine({.name = "no own version", .expect = false, .ownVersion = ""}));
    EXPECT_TRUE(outcome.passed) << outcome.report;
}

TEST(UpdateSelfTest, ACaseWithoutANameIsNumberedAmongTheCases) {
    const Outcome outcome =
        check(goodKey + caseLine({.name = "first"}) + "{\"line\":\"note\",\"name\":\"ignored\"}\n" +
              goodKey + caseLine({.name = "", .expect = false}) + caseLine({.name = ""}));
    EXPECT_EQ(outcome.report,
              "PASS test key loads as a valid P-256 public key\n"
              "PASS first\n"
              "PASS test key loads as a valid P-256 public key\n"
              "FAIL case 2\n"
              "PASS case 3\n" +
                  hostLines);
}

TEST(UpdateSelfTest, AnEmptyFileHasNoCases) {
    for (const std::string vectors : {"", "\n\n", "no json\n{\"line\":\"other\"}\n{\"line\":1}"}) {
        const Outcome outcome = check(vectors);
        EXPECT_FALSE(outcome.passed);
        EXPECT_EQ(outcome.report, "FAIL no cases found in vectors file\n" + hostLines);
    }
}

TEST(UpdateSelfTest, AKeyAloneIsNotEnough) {
    const Outcome outcome = check(goodKey);
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.report,
              "PASS test key loads as a valid P-256 public key\n"
              "FAIL no cases found in vectors file\n" +
                  hostLines);
}

TEST(UpdateSelfTest, CasesBehindABadKeyAreSkipped) {
    for (const std::string blob : {"ECS2key1", "ECSkey1", "key1", "ECS1nothing", "EC", ""}) {
        const Outcome outcome = check(keyLine(blob) + caseLine({.name = "a"}) +
                                      caseLine({.name = "b", .expect = false}));
        EXPECT_FALSE(outcome.passed);
        EXPECT_EQ(outcome.report,
                  "FAIL test key loads as a valid P-256 public key\n"
                  "FAIL case before a valid key line - skipped\n"
                  "FAIL case before a valid key line - skipped\n" +
                      hostLines)
            << blob;
    }
}

TEST(UpdateSelfTest, AKeyThatIsNoHexadecimalIsBad) {
    const Outcome outcome = check("{\"line\":\"key\",\"hex\":\"45435331f\"}\n{\"line\":\"key\"}");
    EXPECT_EQ(outcome.report,
              "FAIL test key loads as a valid P-256 public key\n"
              "FAIL test key loads as a valid P-256 public key\n"
              "FAIL no cases found in vectors file\n" +
                  hostLines);
}

TEST(UpdateSelfTest, ACaseBeforeTheKeyIsCountedAndSkipped) {
    const Outcome outcome = check(caseLine({.name = "early"}) + goodKey + caseLine({.name = ""}));
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.report,
              "FAIL case before a valid key line - skipped\n"
              "PASS test key loads as a valid P-256 public key\n"
              "PASS case 2\n" +
                  hostLines);
}

TEST(UpdateSelfTest, AValidKeyReplacesTheEarlierOneAndABadOneDoesNot) {
    const Outcome outcome =
        check(goodKey + keyLine("ECS1key2") + caseLine({.name = "new", .key = "key2"}) +
              caseLine({.name = "old", .expect = false, .key = "key1"}) + keyLine("bad") +
              caseLine({.name = "still new", .key = "key2"}));
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.report,
              "PASS test key loads as a valid P-256 public key\n"
              "PASS test key loads as a valid P-256 public key\n"
              "PASS new\n"
              "PASS old\n"
              "FAIL test key loads as a valid P-256 public key\n"
              "PASS still new\n" +
                  hostLines);
}

TEST(UpdateSelfTest, MembersGoIntoTheManifestUnescaped) {
    // The quote closes the url early, so what was signed is not what the manifest says.
    const Outcome outcome = check(
        goodKey +
        caseLine({.name = "quote", .expect = false, .url = R"(https://ravelin.example/a\"b)"}));
    EXPECT_TRUE(outcome.passed) << outcome.report;
}

TEST(UpdateSelfTest, LinesEndAtLineFeedsAndTheLastNeedsNone) {
    std::string vectors = goodKey + caseLine({.name = "a"});
    vectors.pop_back();
    EXPECT_TRUE(check(vectors).passed);
    std::string windows;
    for (const char c : vectors)
        windows += c == '\n' ? std::string("\r\n") : std::string(1, c);
    EXPECT_EQ(check(windows).report, check(vectors).report);
}

TEST(UpdateSelfTest, AFileThatCannotBeOpenedIsAllThatIsReported) {
    std::string report = "old";
    EXPECT_FALSE(runUpdateSelfTest("no/such/vectors.txt", importNamedKey, report));
    EXPECT_EQ(report, "FAIL could not open vectors file: no/such/vectors.txt\n");
}

TEST(UpdateSelfTest, ReadsTheFileItIsGiven) {
    const auto file = std::filesystem::temp_directory_path() /
                      ("ravelin-vectors-" + std::to_string(std::random_device()()));
    std::ofstream(file, std::ios::binary) << goodKey << caseLine({.name = "a"});
    std::string report = "old";
    EXPECT_TRUE(runUpdateSelfTest(file.string(), importNamedKey, report));
    EXPECT_EQ(report, "PASS test key loads as a valid P-256 public key\nPASS a\n" + hostLines);
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace ravelin
