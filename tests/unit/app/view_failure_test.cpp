#include "app/view_failure.h"

#include <gtest/gtest.h>

#include <set>

#include "app/engine_version.h"
#include "app/view_limit.h"

namespace ravelin {
namespace {

using enum ViewFailureReason;
constexpr std::uint32_t accessDenied = 0x80070005;

TEST(ViewFailureReasons, FollowFromWhatIsKnown) {
    struct Case {
        const char* what;
        ViewAttempt attempt;
        ViewFailure failure;
    };
    const Case cases[] = {
        {"no runtime", {"", "", {}, false}, {runtimeMissing}},
        {"the runtime went away", {"120.0.1", "", {}, false}, {runtimeMissing}},
        {"no runtime, whatever was said before", {"1", "", accessDenied, true}, {runtimeMissing}},
        {"an old browser lives", {"1", "1", otherEngineRuns, false}, {engineUpdated}},
        {"an old browser lives until the limit",
         {"1", "1", otherEngineRuns, true},
         {engineUpdated}},
        {"updated while it waited", {"1", "2", {}, true}, {engineUpdated}},
        {"updated, and refused for it", {"1", "2", accessDenied, false}, {engineUpdated}},
        {"denied", {"1", "1", accessDenied, false}, {refused, accessDenied}},
        {"denied until the limit", {"1", "1", accessDenied, true}, {refused, accessDenied}},
        {"aborted", {"1", "1", creationAborted, false}, {refused, creationAborted}},
        {"silent until the limit", {"1", "1", {}, true}, {neverCame}},
        {"would serve, but did not until the limit", {"1", "1", 0, true}, {neverCame}},
        {"given up by the library, silent to the program",
         {"1", "1", {}, false},
         {refused, 0x80004005}},
        {"given up by the library, would serve now", {"1", "1", 0, false}, {refused, 0x80004005}},
    };
    for (const auto& [what, attempt, failure] : cases)
        EXPECT_EQ(failureOf(attempt), failure) << what;
}

TEST(ViewFailureReasons, OnlyTwoRefusalsAreNotToldByTheLibrary) {
    EXPECT_TRUE(endsWithoutWord(otherEngineRuns));
    EXPECT_TRUE(endsWithoutWord(creationAborted));
    for (const std::uint32_t other : {std::uint32_t{0}, std::uint32_t{1}, accessDenied, 0x80004005})
        EXPECT_FALSE(endsWithoutWord(other)) << other;
}

TEST(ViewFailureReasons, OnlyMissingFilesAreEquipment) {
    for (const auto reason : {libraryMissing, runtimeMissing})
        EXPECT_TRUE(isEquipmentMissing({reason}));
    for (const auto reason : {none, engineUpdated, refused, neverCame, engineStopped})
        EXPECT_FALSE(isEquipmentMissing({reason}));
}

TEST(ViewFailureTexts, TellTheReasonAndWhatToDo) {
    const std::pair<ViewFailure, const char*> expected[] = {
        {{libraryMissing}, "libwebview.dll"},
        {{libraryMissing}, "https://"},
        {{runtimeMissing}, "WebView2 runtime"},
        {{runtimeMissing}, "https://"},
        {{engineUpdated}, "was updated"},
        {{engineUpdated}, "Close all windows of Ravelin and start it again."},
        {{refused, accessDenied}, "0x80070005"},
        {{refused, 0x00000A0F}, "0x00000A0F"},
        {{neverCame}, "did not answer"},
        {{engineStopped}, "are saved"},
        {{engineStopped}, "Start Ravelin again."},
    };
    for (const auto& [failure, words] : expected)
        EXPECT_NE(viewFailureText(failure).find(words), std::string::npos) << words;
    EXPECT_EQ(viewFailureText({}), "");
}

TEST(ViewFailureTexts, DifferFromEachOther) {
    std::set<std::string> texts;
    for (const auto reason :
         {none, libraryMissing, runtimeMissing, engineUpdated, refused, neverCame, engineStopped})
        texts.insert(viewFailureText({reason}));
    EXPECT_EQ(texts.size(), 7U);
}

TEST(ViewLimit, IsAMinute) {
    EXPECT_EQ(viewLimitMs(), 60'000U);
}

TEST(EngineVersions, AreTheLastPartOfTheFolder) {
    EXPECT_EQ(engineVersionOf(R"(C:\Program Files (x86)\Engine\120.0.2210.91)"), "120.0.2210.91");
    EXPECT_EQ(engineVersionOf("120.0.1150.0"), "120.0.1150.0");
    const char* none[] = {
        "",
        R"(C:\Engine\)",
        R"(C:\120.0.2210.91\Engine)",
        R"(C:\Engine\120.0.2210)",
        R"(C:\Engine\120.0.2210.)",
        R"(C:\Engine\120.0.2210.91.1)",
        R"(C:\Engine\120.0.2210.91 )",
        R"(C:\Engine\120.0.x.91)",
        R"(C:\Engine\120..2210.91)",
        R"(C:\Engine\120.0.-2210.91)",
        R"(C:\Engine\-120.0.2210.91)",
        R"(C:\Engine\120.0.99999999999.91)",
        R"(C:\Engine\120.0.1149.91)",
        R"(C:\Engine\86.0.616.0)",
    };
    for (const char* folder : none)
        EXPECT_EQ(engineVersionOf(folder), "") << folder;
}

}  // namespace
}  // namespace ravelin
