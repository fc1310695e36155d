#include "updater/update_check.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>

#include "product.h"

namespace ravelin {
namespace {

const std::string manifestText =
    std::string(R"({"tier":")") + product::tier + R"(","version":"99999.0.0","url":"https://)" +
    product::webHost + R"(/setup.exe","sha256":")" + std::string(64, '0') + R"(","sig":"01"})";

std::string padded(std::size_t size) {
    return manifestText + std::string(size - manifestText.size(), '\n');
}

bool trustAll(const std::string&, const std::string&) {
    return true;
}

// A network with one document, and the manifest source as a test sets it.
class UpdateCheck : public testing::Test {
  protected:
    ~UpdateCheck() override {
        setUpdateManifestSource(std::nullopt);
        std::error_code ignored;
        std::filesystem::remove(file_, ignored);
    }

    UpdateCheckResult check() {
        return checkForUpdate(
            [this](const std::string& url, std::string& body) {
                asked = url;
                body = document;
                return reachable;
            },
            trustAll);
    }

    std::string fileWith(const std::string& bytes) {
        std::ofstream(file_, std::ios::binary) << bytes;
        return file_.string();
    }

    std::string document = manifestText;
    std::string asked;
    bool reachable = true;

  private:
    std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                  ("ravelin-manifest-" + std::to_string(std::random_device()()));
};

TEST_F(UpdateCheck, AsksTheVendorsHostForTheManifestOfItsTier) {
    const UpdateCheckResult result = check();
    EXPECT_EQ(asked, std::string("https://") + product::webHost + "/update/home.json");
    EXPECT_TRUE(result.available);
    EXPECT_EQ(result.manifest.version, "99999.0.0");
    EXPECT_EQ(result.manifest.sig, "01");
    EXPECT_EQ(result.ownVersion, product::version);
}

TEST_F(UpdateCheck, WithoutTheDocumentNothingIsAvailable) {
    reachable = false;
    const UpdateCheckResult result = check();
    EXPECT_FALSE(result.available);
    EXPECT_EQ(result.manifest, UpdateManifestInfo{});
    EXPECT_EQ(result.ownVersion, product::version);
}

TEST_F(UpdateCheck, WithoutAKeyNothingIsAvailable) {
    EXPECT_FALSE(checkForUpdate(
                     [](const std::string&, std::string& body) {
                         body = manifestText;
                         return true;
                     },
                     {})
                     .available);
}

TEST_F(UpdateCheck, ARefusedManifestIsNotAvailable) {
    document = R"({"tier":"home"})";
    EXPECT_FALSE(check().available);
}

TEST_F(UpdateCheck, AManifestHas1To16384Bytes) {
    document = "";
    EXPECT_FALSE(check().available);
    document = padded(16384);
    EXPECT_TRUE(check().available);
    document = padded(16385);
    EXPECT_FALSE(check().available);
}

TEST_F(UpdateCheck, AnAddressTakesThePlaceOfTheVendorsHost) {
    for (const std::string source : {"https://localhost:8443/m.json", "http://localhost/m.json"}) {
        setUpdateManifestSource(source);
        EXPECT_TRUE(check().available);
        EXPECT_EQ(asked, source);
    }
}

TEST_F(UpdateCheck, AnyOtherSourceIsAFile) {
    setUpdateManifestSource(fileWith(manifestText));
    EXPECT_TRUE(check().available);
    EXPECT_EQ(asked, "");
}

TEST_F(UpdateCheck, AFileIsReadAsItsBytesAre) {
    setUpdateManifestSource(fileWith("\r\n\x1A\n" + manifestText));
    EXPECT_TRUE(check().available);
}

TEST_F(UpdateCheck, AFileHasTheSameLimits) {
    setUpdateManifestSource(fileWith(""));
    EXPECT_FALSE(check().available);
    setUpdateManifestSource(fileWith(padded(16384)));
    EXPECT_TRUE(check().available);
    setUpdateManifestSource(fileWith(padded(16385)));
    EXPECT_FALSE(check().available);
}

TEST_F(UpdateCheck, AFileThatIsNotThereIsNoUpdate) {
    for (const std::string source : {"no such file", "HTTPS://ravelin.example/x", "ftp://x", "."}) {
        setUpdateManifestSource(source);
        EXPECT_FALSE(check().available) << source;
        EXPECT_EQ(asked, "") << source;
    }
}

TEST_F(UpdateCheck, AnEmptySourceIsNone) {
    setUpdateManifestSource("");
    EXPECT_TRUE(check().available);
    EXPECT_EQ(asked, std::string("https://") + product::webHost + "/update/home.json");
}

}  // namespace
}  // namespace ravelin
