#include "persistence/profiles.h"

#include <gtest/gtest.h>

#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "tests/support/live_state.h"

namespace ravelin {
namespace {

constexpr char changedLine[] = "1,2,3,4,1,1,0,7,1,-10,20,5,6,7,8,0,9,65,65|66,1";

class Profiles : public ::testing::Test {
  protected:
    Profiles() { test::resetLiveState(); }
    ~Profiles() override { test::resetLiveState(); }

    static void given(std::vector<std::string> names, std::int32_t current) {
        profiles.clear();
        for (auto& name : names)
            profiles.push_back(Profile{std::move(name), {}, {}});
        currentProfile = current;
    }
    static std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const auto& profile : profiles)
            result.push_back(profile.name);
        return result;
    }
};

using Names = std::vector<std::string>;

TEST_F(Profiles, AreListedForThePage) {
    EXPECT_EQ(getProfiles(),
              R"({"current":-1,"names":[],"cap":3,"defaultName":"Default Tracking Profile"})");
    given({defaultProfileName, "a\\b\t\x01", "Gr\xC3\xBC\xC3\x9F"}, 2);
    EXPECT_EQ(getProfiles(),
              "{\"current\":2,\"names\":[\"Default Tracking Profile\",\"a\\\\b\\t\\u0001\","
              "\"Gr\xC3\xBC\xC3\x9F\"],\"cap\":3,\"defaultName\":\"Default Tracking Profile\"}");
}

TEST_F(Profiles, AreAddedAsACopyOfTheLiveSettingsAndMadeCurrent) {
    given({defaultProfileName}, 0);
    applyToolSettings(changedLine);
    addProfile(R"(["Farm, north"])");
    EXPECT_EQ(names(), (Names{defaultProfileName, "Farm, north"}));
    EXPECT_EQ(currentProfile, 1);
    EXPECT_EQ(profiles[1].settingsLine, changedLine);
    EXPECT_TRUE(profiles[1].events.empty());
    EXPECT_EQ(captureToolSettings(), changedLine);
}

TEST_F(Profiles, LoseBracketsAndQuotesFromTheirNames) {
    addProfile(R"(["[a] \"b\""])");
    EXPECT_EQ(names(), Names{"a \\b\\"});
}

TEST_F(Profiles, AreNotAddedWithoutAName) {
    for (const auto* args : {"", "[]", R"([""])"})
        addProfile(args);
    EXPECT_TRUE(profiles.empty());
}

TEST_F(Profiles, AreThreeAtMost) {
    given({"a", "b", "c"}, 0);
    addProfile(R"(["d"])");
    EXPECT_EQ(names(), (Names{"a", "b", "c"}));
    EXPECT_EQ(currentProfile, 0);
    EXPECT_EQ(getProfiles(), R"({"current":0,"names":["a","b","c"],"cap":3,)"
                             R"("defaultName":"Default Tracking Profile"})");
}

TEST_F(Profiles, MayShareAName) {
    given({defaultProfileName}, 0);
    addProfile(R"(["Default Tracking Profile"])");
    addProfile(R"(["Default Tracking Profile"])");
    EXPECT_EQ(names(), (Names{defaultProfileName, defaultProfileName, defaultProfileName}));
    deleteProfile();
    EXPECT_EQ(names(), (Names{defaultProfileName, defaultProfileName, defaultProfileName}));
}

TEST_F(Profiles, AreSwitchedWithTheirSettings) {
    given({"a", "b", "c"}, 0);
    profiles[1].settingsLine = changedLine;
    switchProfile("[1]");
    EXPECT_EQ(currentProfile, 1);
    EXPECT_EQ(captureToolSettings(), changedLine);
    switchProfile(R"(["2"])");
    EXPECT_EQ(currentProfile, 2);
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
    EXPECT_EQ(profiles[1].settingsLine, changedLine);
}

TEST_F(Profiles, AreSwitchedByTheNumberThatTheTextBeginsWith) {
    given({"a", "b"}, 0);
    switchProfile(R"(["1abc"])");
    EXPECT_EQ(currentProfile, 1);
    switchProfile(R"([" +0"])");
    EXPECT_EQ(currentProfile, 0);
}

TEST_F(Profiles, AreNotSwitchedToWhatIsNotThere) {
    given({"a", "b"}, 0);
    applyToolSettings(changedLine);
    for (const auto* args : {"[7]", "[2]", "[-1]", "[]", R"(["x"])", "[4294967297]"}) {
        switchProfile(args);
        EXPECT_EQ(currentProfile, 0) << args;
    }
    EXPECT_EQ(captureToolSettings(), changedLine);
}

TEST_F(Profiles, KeepRecorderAndPlayerOptionsWhenSwitched) {
    given({"a", "b"}, 0);
    toolSettings.tmv = false;
    toolSettings.tspd = 2.5F;
    toolSettings.tloopMs = 7;
    toolSettings.holdAuto = true;
    switchProfile("[1]");
    EXPECT_FALSE(toolSettings.tmv.load());
    EXPECT_EQ(toolSettings.tspd.load(), 2.5F);
    EXPECT_EQ(toolSettings.tloopMs.load(), 7);
    EXPECT_TRUE(toolSettings.holdAuto.load());
}

TEST_F(Profiles, AreDeletedWithTheirEventsAndTheNextMovesUp) {
    given({"a", "b", "c"}, 1);
    profiles[1].events.append({});
    profiles[2].settingsLine = changedLine;
    deleteProfile();
    EXPECT_EQ(names(), (Names{"a", "c"}));
    EXPECT_EQ(currentProfile, 1);
    EXPECT_TRUE(profiles[1].events.empty());
    EXPECT_EQ(captureToolSettings(), changedLine);
}

TEST_F(Profiles, MakeTheNewLastOneCurrentWhenTheLastIsDeleted) {
    given({"a", "b", "c"}, 2);
    applyToolSettings(changedLine);
    deleteProfile();
    EXPECT_EQ(names(), (Names{"a", "b"}));
    EXPECT_EQ(currentProfile, 1);
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
}

TEST_F(Profiles, AreNeverDeletedToTheLast) {
    given({"mine"}, 0);
    profiles[0].events.append({});
    deleteProfile();
    EXPECT_EQ(names(), Names{"mine"});
    EXPECT_EQ(profiles[0].events.size(), 1U);
}

TEST_F(Profiles, AreClearedInsteadOfDeletedUnderTheDefaultName) {
    given({"a", defaultProfileName, "c"}, 1);
    applyToolSettings(changedLine);
    profiles[1].settingsLine = changedLine;
    profiles[1].events.append({});
    deleteProfile();
    EXPECT_EQ(names(), (Names{"a", defaultProfileName, "c"}));
    EXPECT_EQ(currentProfile, 1);
    EXPECT_TRUE(profiles[1].events.empty());
    EXPECT_EQ(profiles[1].settingsLine, defaultSettingsLine);
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
}

TEST_F(Profiles, StayAsTheyAreWithoutACurrentOne) {
    for (const std::int32_t none : {-1, 2, 100}) {
        given({"a", "b"}, none);
        deleteProfile();
        clearProfile();
        syncCurrentProfile();
        EXPECT_EQ(names(), (Names{"a", "b"}));
        EXPECT_EQ(currentProfile, none);
        EXPECT_EQ(profiles[0].settingsLine, "");
    }
}

TEST_F(Profiles, StayAsTheyAreWhileAMacroIsPlayed) {
    given({"a", "b"}, 1);
    profiles[0].settingsLine = changedLine;
    engine.playing = true;
    addProfile(R"(["c"])");
    switchProfile("[0]");
    deleteProfile();
    EXPECT_EQ(names(), (Names{"a", "b"}));
    EXPECT_EQ(currentProfile, 1);
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
}

TEST_F(Profiles, AreClearedWithTheLiveSettings) {
    given({"a", "b"}, 1);
    applyToolSettings(changedLine);
    profiles[0].settingsLine = changedLine;
    profiles[0].events.append({});
    profiles[1].settingsLine = changedLine;
    profiles[1].events.append({});
    clearProfile();
    EXPECT_EQ(captureToolSettings(), defaultSettingsLine);
    EXPECT_EQ(profiles[1].settingsLine, defaultSettingsLine);
    EXPECT_TRUE(profiles[1].events.empty());
    EXPECT_EQ(profiles[0].settingsLine, changedLine);
    EXPECT_EQ(profiles[0].events.size(), 1U);
}

TEST_F(Profiles, AreNotClearedDuringARecording) {
    given({"a"}, 0);
    applyToolSettings(changedLine);
    profiles[0].events.append({});
    engine.recording = true;
    clearProfile();
    EXPECT_EQ(captureToolSettings(), changedLine);
    EXPECT_EQ(profiles[0].events.size(), 1U);
}

TEST_F(Profiles, FollowTheLiveSettings) {
    given({"a", "b"}, 1);
    applyToolSettings(changedLine);
    syncCurrentProfile();
    EXPECT_EQ(profiles[0].settingsLine, "");
    EXPECT_EQ(profiles[1].settingsLine, changedLine);
}

TEST_F(Profiles, StartWithOneOfTheDefaultName) {
    addDefaultProfile();
    EXPECT_EQ(names(), Names{defaultProfileName});
    EXPECT_EQ(currentProfile, 0);
    ensureDefaultProfile();
    EXPECT_EQ(names(), Names{defaultProfileName});
    EXPECT_EQ(currentProfile, 0);
}

TEST_F(Profiles, GetTheDefaultOneInFrontAndKeepTheCurrentOne) {
    given({"a", "b", "c"}, 1);
    ensureDefaultProfile();
    EXPECT_EQ(names(), (Names{defaultProfileName, "a", "b", "c"}));
    EXPECT_EQ(currentProfile, 2);
    EXPECT_EQ(profiles[0].settingsLine, "");
    addProfile(R"(["e"])");
    EXPECT_EQ(profiles.size(), 4U);
}

TEST_F(Profiles, GetTheDefaultOneIntoAnEmptyList) {
    ensureDefaultProfile();
    EXPECT_EQ(names(), Names{defaultProfileName});
    EXPECT_EQ(currentProfile, 0);
}

TEST_F(Profiles, KeepTheDefaultOneWhereItStands) {
    given({"a", defaultProfileName}, 0);
    ensureDefaultProfile();
    EXPECT_EQ(names(), (Names{"a", defaultProfileName}));
    EXPECT_EQ(currentProfile, 0);
    given({"default tracking profile"}, 0);
    ensureDefaultProfile();
    EXPECT_EQ(profiles.size(), 2U);
}

}  // namespace
}  // namespace ravelin
