#include "app/saved_state.h"

#include "input/status.h"
#include "persistence/session_file.h"
#include "persistence/session_text.h"
#include "tests/support/engine_test.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

class SavedState : public test::EngineTest {
  protected:
    // A main process with two profiles, of which the second is current, and a recorded macro.
    void saveAMainProcess() {
        profiles = {Profile{"One", "9,9,9,9,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32,0", {}},
                    Profile{"Two", "", {}}};
        profiles[0].events.append({});
        currentProfile = 1;
        toolSettings.sms.exchange(37);
        toolSettings.kss.exchange(4);
        syncCurrentProfile();
        sessionPath = path_;
        saveSession();
    }

    // A child process, which knows nothing yet.
    void becomeAChild() { test::resetEngine(); }

    std::string sessionText() const { return test::readBytes(path_); }
    static std::optional<SavedLines> linesIn(const std::string& text) {
        auto reader = linesOf(text);
        return readSavedLines(reader);
    }

    test::TempFolder folder_;
    std::string path_ = folder_.file("session.dat");
};

TEST_F(SavedState, AChildTellsTheSettingsOfTheCurrentProfile) {
    saveAMainProcess();
    const auto original = getSettings();
    becomeAChild();
    ASSERT_NE(getSettings(), original);
    SavedSettings saved(path_);
    EXPECT_EQ(saved.read(), original);
}

TEST_F(SavedState, AFileThatChangesIsReadAgain) {
    saveAMainProcess();
    SavedSettings saved(path_);
    const auto first = saved.read();
    toolSettings.sms.exchange(12345);
    syncCurrentProfile();
    saveSession();
    const auto second = getSettings();
    becomeAChild();
    EXPECT_NE(first, second);
    EXPECT_EQ(saved.read(), second);
}

TEST_F(SavedState, WithoutAFileNothingIsKnown) {
    EXPECT_EQ(SavedSettings(path_).read(), "");
    EXPECT_EQ(SavedStatus(folder_.file("status.txt")).read(), "");
}

TEST_F(SavedState, NoPieceOfAHalfWrittenSessionIsTakenForTheWhole) {
    saveAMainProcess();
    const auto whole = sessionText();
    const auto lines = linesIn(whole);
    ASSERT_TRUE(lines);
    const auto place = whole.rfind("PROFILESETTINGS:");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto cut = linesIn(whole.substr(0, length));
        if (!cut) continue;
        // Without the profile's own line, or with all of it.
        if (length < place + 16) {
            EXPECT_EQ(cut->profile, "") << length;
        } else {
            EXPECT_EQ(cut->profile, lines->profile) << length;
        }
        EXPECT_EQ(cut->session, lines->session) << length;
    }
}

TEST_F(SavedState, ASessionThatIsSpoiltKeepsTheLastGoodSettings) {
    saveAMainProcess();
    SavedSettings saved(path_);
    const auto good = saved.read();
    for (const std::string spoilt : {"", "SETTINGS:1,2,3\n", "CURRENT:0\n", "\x01\x02"}) {
        std::ofstream(path_, std::ios::binary) << spoilt;
        EXPECT_EQ(saved.read(), good) << spoilt;
    }
}

TEST_F(SavedState, LinesOfWordsAndMissingProfilesAreRefused) {
    saveAMainProcess();
    const auto whole = sessionText();
    const auto replaced = [&](const std::string& what, const std::string& by) {
        auto text = whole;
        text.replace(text.find(what), what.size(), by);
        return text;
    };
    EXPECT_FALSE(linesIn(replaced("CURRENT:1", "CURRENT:2")));
    EXPECT_FALSE(linesIn(replaced("CURRENT:1", "CURRENT:-1")));
    EXPECT_FALSE(linesIn(replaced("CURRENT:1", "CURRENT:x")));
    EXPECT_FALSE(linesIn(replaced("SETTINGS:0,", "SETTINGS:x,")));
    EXPECT_FALSE(linesIn(replaced("SETTINGS:", "")));
    EXPECT_EQ(linesIn(replaced("CURRENT:1", "CURRENT:0"))->profile, profiles[0].settingsLine);
}

TEST_F(SavedState, AStatusIsTakenAsItIsWrittenAndOnlyWhole) {
    const auto status = getTrackerStatus({"panel-ui"});
    EXPECT_TRUE(isWholeStatus(status));
    for (std::size_t length = 0; length < status.size(); ++length)
        EXPECT_FALSE(isWholeStatus(status.substr(0, length))) << length;
    for (const char* other : {"[]", "1", "{}", "null", "{\"state\":1}", "{\"state\":\"Idle\"}"})
        EXPECT_FALSE(isWholeStatus(other)) << other;
    EXPECT_FALSE(isWholeStatus(status + std::string(70000, ' ')));
}

TEST_F(SavedState, AHalfWrittenStatusKeepsTheLastOne) {
    const auto path = folder_.file("status.txt");
    SavedStatus saved(path);
    const auto status = getTrackerStatus({});
    std::ofstream(path) << status;
    EXPECT_EQ(saved.read(), status);
    std::ofstream(path) << status.substr(0, 40);
    EXPECT_EQ(saved.read(), status);
    engine.autoClicking.exchange(true);
    std::ofstream(path) << getTrackerStatus({});
    EXPECT_EQ(saved.read(), getTrackerStatus({}));
}

}  // namespace
}  // namespace ravelin
