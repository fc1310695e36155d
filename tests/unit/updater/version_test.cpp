#include "updater/version.h"

#include <gtest/gtest.h>

#include <string>

namespace ravelin {
namespace {

bool newer(const char* offered, const char* own) {
    return isNewer(ParseVersion(offered), ParseVersion(own));
}

TEST(Version, AReleaseIsThreeNumbers) {
    const Version version = ParseVersion("1.20.345");
    EXPECT_TRUE(version.valid);
    EXPECT_EQ(version.major, 1U);
    EXPECT_EQ(version.minor, 20U);
    EXPECT_EQ(version.patch, 345U);
    EXPECT_FALSE(version.isPre);
}

TEST(Version, APreReleaseCarriesItsNumber) {
    const Version version = ParseVersion("2.0.0-beta.17");
    EXPECT_TRUE(version.valid);
    EXPECT_EQ(version.major, 2U);
    EXPECT_TRUE(version.isPre);
    EXPECT_EQ(version.preNum, 17U);
}

TEST(Version, NumbersHaveUpToFiveDigits) {
    const Version version = ParseVersion("99999.00000.00001-beta.99999");
    EXPECT_TRUE(version.valid);
    EXPECT_EQ(version.major, 99999U);
    EXPECT_EQ(version.minor, 0U);
    EXPECT_EQ(version.patch, 1U);
    EXPECT_EQ(version.preNum, 99999U);
}

TEST(Version, AnythingElseIsNotValid) {
    for (const std::string text : {
             "",
             ".",
             "..",
             "1",
             "1.",
             "1.0",
             "1.0.",
             ".0.1",
             "1..1",
             "1.0.1.",
             "1.0.1.0",
             "v1.0.1",
             " 1.0.1",
             "1.0.1 ",
             "1. 0.1",
             "+1.0.1",
             "1.-0.1",
             "1.0.x",
             "1,0,1",
             "100000.0.1",
             "1.000000.1",
             "1.0.123456",
             "1.0.1-",
             "1.0.1-beta",
             "1.0.1-beta.",
             "1.0.1-beta3",
             "1.0.1-beta.3 ",
             "1.0.1-beta.3.1",
             "1.0.1-beta.123456",
             "1.0.1-beta.-3",
             "1.0.1-Beta.3",
             "1.0.1-alpha.3",
             "1.0.1-rc.1",
             "1.0.1+build",
             "1.0.1-beta.3-beta.3",
         }) {
        EXPECT_FALSE(ParseVersion(text).valid) << '"' << text << '"';
    }
    EXPECT_FALSE(ParseVersion(std::string("1.0.1\0", 6)).valid);
}

TEST(Version, TheFirstNumberThatDiffersDecides) {
    EXPECT_TRUE(newer("1.0.2", "1.0.1"));
    EXPECT_TRUE(newer("1.1.0", "1.0.9"));
    EXPECT_TRUE(newer("2.0.0", "1.99999.99999"));
    EXPECT_TRUE(newer("1.10.0", "1.9.0"));
    EXPECT_FALSE(newer("1.0.1", "1.0.2"));
    EXPECT_FALSE(newer("1.0.9", "1.1.0"));
    EXPECT_FALSE(newer("0.9.9", "1.0.0"));
}

TEST(Version, TheSameReleaseIsNotNewer) {
    EXPECT_FALSE(newer("1.0.1", "1.0.1"));
    EXPECT_FALSE(newer("01.00.001", "1.0.1"));
}

TEST(Version, AReleaseFollowsItsPreReleases) {
    EXPECT_TRUE(newer("1.0.1", "1.0.1-beta.3"));
    EXPECT_FALSE(newer("1.0.1-beta.3", "1.0.1"));
    EXPECT_TRUE(newer("1.0.2-beta.1", "1.0.1"));
    EXPECT_FALSE(newer("1.0.1", "1.0.2-beta.1"));
}

TEST(Version, PreReleasesOfOneReleaseFollowEachOtherByNumber) {
    EXPECT_TRUE(newer("1.0.1-beta.10", "1.0.1-beta.9"));
    EXPECT_FALSE(newer("1.0.1-beta.3", "1.0.1-beta.3"));
    EXPECT_FALSE(newer("1.0.1-beta.2", "1.0.1-beta.3"));
    EXPECT_TRUE(newer("1.0.2-beta.1", "1.0.1-beta.9"));
}

}  // namespace
}  // namespace ravelin
