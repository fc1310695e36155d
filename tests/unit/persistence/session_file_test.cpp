#include "persistence/session_file.h"

#include <thread>

#include "data_folder_fixture.h"
#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "persistence/app_settings.h"
#include "persistence/session_settings.h"
#include "persistence/session_text.h"
#include "support/file_system.h"

namespace ravelin {
namespace {

using namespace std::string_literals;

constexpr char settings[] =
    "1,2,3,4,1,1,0,7,1,-8,9,0,0,0,0,1,0.25,1,12,20,21,0,23,24,25,26,27,0,29,30,31,65|66|67,1,1,1,"
    "36";
constexpr char defaultSettings[] =
    "0,0,0,5,0,0,1,10,0,0,0,1,1,1,1,0,1,0,500,119,118,0,117,0,0,0,5,1,10,120,32,32,0,0,0,121";

class SessionFile : public test::DataFolderFixture {
  protected:
    SessionFile() {
        sessionPath = localAppData.file("session.dat");
        sessionStands = true;
        savesAreOver = false;
    }
    // Nothing that a test left unread may be kept by the next one's save.
    ~SessionFile() override {
        savesAreOver = false;
        deleteFile(sessionPath);
        saveSession();
        sessionPath.clear();
        sessionStands = false;
    }
    std::string copy(const std::string& ending) const {
        return test::readBytes(sessionPath + ending);
    }
    bool hasCopy(const std::string& ending) const {
        return std::filesystem::exists(sessionPath + ending);
    }

    static std::string saved() {
        saveSession();
        return test::readBytes(sessionPath);
    }
    static bool load(const std::string& text) {
        test::writeBytes(sessionPath, text);
        return loadSession();
    }
};

TEST_F(SessionFile, HoldsSettingsAndProfilesByteForByte) {
    applySessionSettings(settings);
    profiles = {Profile{defaultProfileName, "", {}},
                Profile{"Farm, north",
                        "1,2,3",
                        {{0, 1.5, -3, 4, 0, 0, 0, 0}, {3, 1234567.0, 0, 0, 0, 65, 1, 0}}},
                Profile{"", "", {{4, 2, 0, 0, 0, 0, 0, -120}}}};
    currentProfile = 1;
    EXPECT_EQ(saved(), "SETTINGS:"s + settings +
                           "\r\nCURRENT:1\r\n"
                           "PROFILE:Default Tracking Profile\r\n"
                           "PROFILE:Farm, north\r\nPROFILESETTINGS:1,2,3\r\n"
                           "0,1.5,-3,4,0,0,0,0\r\n3,1.23457e+06,0,0,0,65,1,0\r\n"
                           "PROFILE:\r\n4,2,0,0,0,0,0,-120\r\n");
}

TEST_F(SessionFile, MayHoldNoProfile) {
    EXPECT_EQ(saved(), "SETTINGS:"s + defaultSettings + "\r\nCURRENT:-1\r\n");
    EXPECT_FALSE(loadSession());
}

TEST_F(SessionFile, IsReadAsItWasWritten) {
    applySessionSettings(settings);
    EventList events;
    for (int i = 0; i < 5000; ++i)
        events.append({i % 6, i / 8.0, i, -i, 0, 0, 0, 0});
    profiles = {Profile{"PROFILE:a", "1,2,3", events}, Profile{"b,c;\"d\"", "x", {}},
                Profile{"", std::string(defaultSettingsLine), {{}}}};
    currentProfile = 2;
    const auto text = saved();
    const auto before = profiles;
    test::resetLiveState();
    ASSERT_TRUE(loadSession());
    EXPECT_EQ(currentProfile, 2);
    ASSERT_EQ(profiles.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(profiles[i].name, before[i].name);
        EXPECT_EQ(profiles[i].settingsLine, before[i].settingsLine);
        EXPECT_TRUE(profiles[i].events == before[i].events);
    }
    EXPECT_EQ(sessionSettingsLine(), settings);
    EXPECT_EQ(saved(), text);
}

TEST_F(SessionFile, LosesDigitsOfLongTimes) {
    profiles = {
        Profile{"a", "x", {{0, 1234567.0, 0, 0, 0, 0, 0, 0}, {0, 12.3456789, 0, 0, 0, 0, 0, 0}}}};
    saveSession();
    ASSERT_TRUE(loadSession());
    EXPECT_EQ(profiles[0].events[0].time, 1234570.0);
    EXPECT_EQ(profiles[0].events[1].time, 12.3457);
}

TEST_F(SessionFile, BreaksANameWithALineBreak) {
    profiles = {Profile{"two\nlines", "x", {{0, 1, 0, 0, 0, 0, 0, 0}}}};
    saveSession();
    ASSERT_TRUE(loadSession());
    ASSERT_EQ(profiles.size(), 1U);
    EXPECT_EQ(profiles[0].name, "two");
    EXPECT_EQ(profiles[0].events.size(), 1U);
}

TEST_F(SessionFile, MayBeMissing) {
    profiles = {Profile{"kept", "x", {}}};
    EXPECT_FALSE(loadSession());
    EXPECT_EQ(profiles.size(), 1U);
    EXPECT_EQ(sessionSettingsLine(), defaultSettings);
}

TEST_F(SessionFile, IsIgnoredWithoutItsSettingsInFront) {
    profiles = {Profile{"kept", "x", {}}};
    for (const auto& text :
         {""s, "\n"s, "CURRENT:0\nPROFILE:a\n"s,
          "\nSETTINGS:"s + settings + "\nCURRENT:0\nPROFILE:a\n",
          " SETTINGS:"s + settings + "\nCURRENT:0\nPROFILE:a\n",
          "settings:"s + settings + "\nCURRENT:0\nPROFILE:a\n", "SETTINGS"s, "MZ\x90\0\x03"s}) {
        EXPECT_FALSE(load(text)) << text.substr(0, 30);
        EXPECT_EQ(profiles[0].name, "kept");
        EXPECT_EQ(sessionSettingsLine(), defaultSettings);
    }
}

TEST_F(SessionFile, AppliesItsSettingsEvenWithoutProfiles) {
    profiles = {Profile{"kept", "x", {}}};
    EXPECT_FALSE(
        load("SETTINGS:"s + settings + "\nCURRENT:0\n0,1,0,0,0,0,0,0\nPROFILESETTINGS:1\n"));
    EXPECT_EQ(sessionSettingsLine(), settings);
    EXPECT_EQ(profiles[0].name, "kept");
}

TEST_F(SessionFile, MakesTheFirstProfileCurrentWhenItsIndexIsBad) {
    const std::string tail = "\nPROFILE:a\nPROFILESETTINGS:x\nPROFILE:b\nPROFILESETTINGS:y\n";
    const struct {
        const char* line;
        std::int32_t current;
    } cases[] = {{"CURRENT:0", 0},           {"CURRENT:1", 1}, {"CURRENT:2", 0}, {"CURRENT:5", 0},
                 {"CURRENT:-1", 0},          {"CURRENT:x", 0}, {"CURRENT:", 0},  {"CURRENT: 1b", 1},
                 {"CURRENT:99999999999", 0}, {"CURRENT1", 0},  {"", 0},          {"current:1", 0}};
    for (const auto& c : cases) {
        EXPECT_TRUE(load("SETTINGS:\n"s + c.line + tail)) << c.line;
        EXPECT_EQ(currentProfile, c.current) << c.line;
        EXPECT_EQ(profiles.size(), 2U) << c.line;
    }
}

TEST_F(SessionFile, DropsItsSecondLineWhateverItIs) {
    ASSERT_TRUE(load("SETTINGS:\nPROFILE:lost\nPROFILE:a\n"));
    ASSERT_EQ(profiles.size(), 1U);
    EXPECT_EQ(profiles[0].name, "a");
    EXPECT_FALSE(load("SETTINGS:\nPROFILE:lost\n"));
}

TEST_F(SessionFile, GivesTheCurrentProfileTheLiveSettingsWhenItHasNone) {
    ASSERT_TRUE(load("SETTINGS:"s + settings + "\nCURRENT:1\nPROFILE:a\nPROFILE:b\nPROFILE:c\n"));
    EXPECT_EQ(profiles[0].settingsLine, "");
    EXPECT_EQ(profiles[1].settingsLine, "1,2,3,4,1,1,0,7,1,-8,9,24,25,26,27,0,29,31,65|66|67,1");
    EXPECT_EQ(profiles[2].settingsLine, "");
}

TEST_F(SessionFile, DoesNotApplyTheLineOfTheCurrentProfile) {
    ASSERT_TRUE(load("SETTINGS:"s + settings + "\nCURRENT:0\nPROFILE:a\nPROFILESETTINGS:" +
                     std::string(defaultSettingsLine) + "\n"));
    EXPECT_EQ(sessionSettingsLine(), settings);
    EXPECT_EQ(profiles[0].settingsLine, defaultSettingsLine);
}

TEST_F(SessionFile, SkipsWhatBelongsToNoProfileOrMakesNoSense) {
    ASSERT_TRUE(
        load("SETTINGS:\nCURRENT:0\nPROFILESETTINGS:lost\n0,9,0,0,0,0,0,0\n\n"
             "PROFILE:a\n0,1,0,0,0,0,0,0\n0,2,0,0,0,0,0\n\nrubbish\n0,3,0,0,0,0,0,0\n"
             "PROFILESETTINGS:x\nPROFILESETTINGS:y\n0,4,0,0,0,0,0,0\nCURRENT:7\n"
             "SETTINGS:1\nPROFILE:b\n"));
    ASSERT_EQ(profiles.size(), 2U);
    EXPECT_EQ(profiles[0].settingsLine, "y");
    ASSERT_EQ(profiles[0].events.size(), 3U);
    EXPECT_EQ(profiles[0].events[0].time, 1.0);
    EXPECT_EQ(profiles[0].events[1].time, 3.0);
    EXPECT_EQ(profiles[0].events[2].time, 4.0);
    EXPECT_EQ(currentProfile, 0);
    EXPECT_EQ(profiles[1].name, "b");
}

TEST_F(SessionFile, ReadsEitherLineEnd) {
    ASSERT_TRUE(
        load("SETTINGS:\r\nCURRENT:1\nPROFILE:a\r\nPROFILE:b\r\nPROFILESETTINGS:x\r\n"
             "0,1,0,0,0,0,0,0\r\n"));
    EXPECT_EQ(profiles[0].name, "a");
    EXPECT_EQ(profiles[1].settingsLine, "x");
    EXPECT_EQ(profiles[1].events.size(), 1U);
    EXPECT_EQ(currentProfile, 1);
}

TEST_F(SessionFile, MayHoldMoreProfilesThanCanBeAdded) {
    ASSERT_TRUE(load("SETTINGS:\nCURRENT:3\nPROFILE:a\nPROFILE:b\nPROFILE:c\nPROFILE:d\n"));
    EXPECT_EQ(profiles.size(), 4U);
    EXPECT_EQ(currentProfile, 3);
    ensureDefaultProfile();
    EXPECT_EQ(profiles.size(), 5U);
    EXPECT_EQ(currentProfile, 4);
}

TEST_F(SessionFile, KeepsOldProfilesOutOfTheList) {
    profiles = {Profile{"old", "x", {}}, Profile{"older", "x", {}}};
    currentProfile = 1;
    ASSERT_TRUE(load("SETTINGS:\nCURRENT:0\nPROFILE:new\n"));
    ASSERT_EQ(profiles.size(), 1U);
    EXPECT_EQ(profiles[0].name, "new");
    EXPECT_EQ(currentProfile, 0);
}

// What survives of files that were cut off, overwritten or never were a session.
TEST_F(SessionFile, SurvivesDamage) {
    const std::string start = "SETTINGS:"s + settings + "\nCURRENT:0\nPROFILE:a\n0,1,0,0,0,0,0,0\n";
    const std::string zeros(100000, '\0');
    std::string manyProfiles = "SETTINGS:\nCURRENT:0\n";
    for (int i = 0; i < 100000; ++i)
        manyProfiles += "PROFILE:\n0,1,0,0,0,0,0,0\n";
    const struct {
        std::string text;
        std::size_t profiles;
        std::size_t events;  // of the first profile
    } cases[] = {
        {start, 1, 1},
        {start + "0,2,0,0,0,0", 1, 1},
        {start + "PROF", 1, 1},
        {start + "PROFILE:", 2, 1},
        {start + "PROFILESETTINGS:0,0,0", 1, 1},
        {start + zeros, 1, 1},
        {start + zeros + "\n0,2,0,0,0,0,0,0\nPROFILE:b\n", 2, 2},
        {start + std::string(1000000, ',') + "\n0,2,0,0,0,0,0,0\n", 1, 2},
        {start + std::string(1000000, '9') + "\n0,2,0,0,0,0,0,0\n", 1, 2},
        {start + std::string(1000000, '\n') + "0,2,0,0,0,0,0,0\n", 1, 2},
        {start + "\x1A\n\xFF\xFE\n0,2,0,0,0,0,0,0\n", 1, 2},
        {"SETTINGS:" + std::string(1000000, ',') + "\nCURRENT:0\nPROFILE:a\n", 1, 0},
        {"SETTINGS:" + zeros + "\nCURRENT:0\nPROFILE:" + std::string(1000000, 'n') + "\n", 1, 0},
        {manyProfiles, 100000, 1},
        {"SETTINGS:" + std::string(1000000, 'x'), 0, 0},
        {std::string(1000000, 'x'), 0, 0},
        {zeros, 0, 0},
    };
    for (const auto& c : cases) {
        test::resetLiveState();
        EXPECT_EQ(load(c.text), c.profiles > 0) << c.text.substr(0, 200);
        ASSERT_EQ(profiles.size(), c.profiles) << c.text.substr(0, 200);
        if (c.profiles > 0) {
            EXPECT_EQ(profiles[0].events.size(), c.events) << c.text.substr(0, 200);
        }
    }
}

TEST_F(SessionFile, IsNotWrittenWhileTheProfilesAreBusy) {
    test::writeBytes(sessionPath, "before");
    std::unique_lock lock(profileMutex);
    std::thread([] { saveSession(); }).join();
    std::thread([] { saveSessionFromCrash(); }).join();
    EXPECT_EQ(test::readBytes(sessionPath), "before");
    lock.unlock();
    std::thread([] { saveSessionFromCrash(); }).join();
    EXPECT_NE(test::readBytes(sessionPath), "before");
}

TEST_F(SessionFile, MayBeImpossibleToWrite) {
    sessionPath = localAppData.file("missing/session.dat");
    saveSession();
    saveSessionFromCrash();
    EXPECT_FALSE(std::filesystem::exists(localAppData.file("missing")));
    sessionPath.clear();
    saveSession();
    EXPECT_FALSE(loadSession());
}

TEST_F(SessionFile, IsCopiedAsideBeforeASaveWhenItGaveNoProfile) {
    const std::string refused[] = {
        "ETTINGS:"s + settings + "\r\nCURRENT:0\r\nPROFILE:mine\r\n0,1,0,0,0,0,0,0\r\n",
        "SETTINGS:"s + settings + "\r\nCURRENT:0\r\nROFILE:mine\r\n0,1,0,0,0,0,0,0\r\n",
        "SETTINGS:", "anything"};
    for (const auto& text : refused) {
        EXPECT_FALSE(load(text));
        addDefaultProfile();
        EXPECT_FALSE(hasCopy(".refused"));
        EXPECT_EQ(test::readBytes(sessionPath), text);  // copied, not moved
        saveSession();
        EXPECT_EQ(copy(".refused"), text);
        const auto first = test::readBytes(sessionPath);
        EXPECT_NE(first, text);
        saveSession();
        EXPECT_EQ(copy(".refused"), text) << "copied once";
        EXPECT_FALSE(hasCopy(".start"));
        test::resetLiveState();
        std::filesystem::remove(sessionPath + ".refused");
    }
}

TEST_F(SessionFile, IsCopiedAsideByASaveFromACrashToo) {
    EXPECT_FALSE(load("refused"));
    addDefaultProfile();
    saveSessionFromCrash();
    EXPECT_EQ(copy(".refused"), "refused");
}

TEST_F(SessionFile, IsNotWrittenOverBeforeItCouldBeCopied) {
    EXPECT_FALSE(load("refused"));
    addDefaultProfile();
    std::filesystem::create_directory(sessionPath + ".refused");  // in the way of the copy
    saveSession();
    EXPECT_EQ(test::readBytes(sessionPath), "refused");
    std::filesystem::remove(sessionPath + ".refused");
    saveSession();
    EXPECT_EQ(copy(".refused"), "refused");
    EXPECT_NE(test::readBytes(sessionPath), "refused");
}

TEST_F(SessionFile, ThatIsEmptyOrMissingReplacesNoEarlierCopy) {
    test::writeBytes(sessionPath + ".refused", "earlier");
    EXPECT_FALSE(load(""));
    saveSession();
    EXPECT_EQ(copy(".refused"), "earlier");
    std::filesystem::remove(sessionPath);
    EXPECT_FALSE(loadSession());
    saveSession();
    EXPECT_EQ(copy(".refused"), "earlier");
    EXPECT_TRUE(std::filesystem::exists(sessionPath));
}

TEST_F(SessionFile, ThatCannotBeReadToItsEndChangesNothing) {
    // Away from Windows a folder can be opened, and reading it fails.
    std::filesystem::create_directory(sessionPath);
    profiles = {Profile{"mine", "", {}}};
    EXPECT_FALSE(loadSession());
    EXPECT_EQ(profiles.size(), 1U);
    std::filesystem::remove(sessionPath);
}

TEST_F(SessionFile, IsCopiedOnceAStartAfterItWasRead) {
    const auto text = "SETTINGS:"s + settings + "\r\nCURRENT:0\r\nPROFILE:a\r\n0,1,0,0,0,0,0,0\r\n";
    EXPECT_TRUE(load(text));
    EXPECT_EQ(copy(".start"), text);
    profiles[0].events.clear();
    saveSession();
    EXPECT_NE(test::readBytes(sessionPath), text);
    EXPECT_EQ(copy(".start"), text);
    EXPECT_FALSE(hasCopy(".refused"));
    const auto saved = test::readBytes(sessionPath);
    EXPECT_TRUE(loadSession());
    EXPECT_EQ(copy(".start"), saved);
}

TEST_F(SessionFile, ThatWasCutOffLeavesTheCopyOfAWholeOne) {
    const auto whole =
        "SETTINGS:"s + settings + "\r\nCURRENT:0\r\nPROFILE:a\r\n0,1,0,0,0,0,0,0\r\n";
    ASSERT_TRUE(load(whole));
    for (std::size_t length = whole.find("PROFILE:") + 8; length < whole.size(); ++length) {
        const auto cut = whole.substr(0, length);
        if (cut.ends_with('\n')) continue;
        ASSERT_TRUE(load(cut)) << length;
        EXPECT_EQ(copy(".start"), whole) << length;
    }
    // Not even its first line is left.
    EXPECT_FALSE(load(whole.substr(0, 4)));
    EXPECT_EQ(copy(".start"), whole);
}

TEST_F(SessionFile, IsNotSavedByACrashBeforeTheProfilesStand) {
    sessionStands = false;
    test::writeBytes(sessionPath, "intact");
    saveSessionFromCrash();
    EXPECT_EQ(test::readBytes(sessionPath), "intact");
}

TEST_F(SessionFile, IsSavedForTheLastTimeAndNeverAfter) {
    profiles = {Profile{"last", "", {}}};
    currentProfile = 0;
    saveSessionForGood();
    const auto text = test::readBytes(sessionPath);
    EXPECT_NE(text.find("PROFILE:last"), std::string::npos);
    profiles[0].name = "later";
    saveSession();
    saveSessionFromCrash();
    saveSessionForGood();
    saveAppSettings();
    EXPECT_EQ(test::readBytes(sessionPath), text);
    EXPECT_FALSE(fileWritten());
}

TEST_F(SessionFile, WaitsForTheProfilesWhenItIsSavedForTheLastTime) {
    profiles = {Profile{"last", "", {}}};
    currentProfile = 0;
    std::unique_lock lock(profileMutex);
    std::atomic<bool> saved{false};
    std::thread ending([&saved] {
        saveSessionForGood();
        saved = true;
    });
    std::this_thread::yield();
    EXPECT_FALSE(saved);
    profiles[0].name = "at the very end";
    lock.unlock();
    ending.join();
    EXPECT_NE(test::readBytes(sessionPath).find("PROFILE:at the very end"), std::string::npos);
}

TEST_F(SessionFile, KeepsALoneCarriageReturnAtItsVeryEnd) {
    ASSERT_TRUE(load("SETTINGS:\r\nCURRENT:0\r\nPROFILE:name\r"));
    EXPECT_EQ(profiles[0].name, "name\r");
}

TEST_F(SessionFile, IsWholeHoweverManySaveAtOnce) {
    EventList events;
    for (int i = 0; i < 20000; ++i)
        events.append({0, i / 8.0, i, i, 0, 0, 0, 0});
    profiles = {Profile{"a", "x", events}};
    currentProfile = 0;
    const auto expected = saved();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int n = 0; n < 5; ++n)
                saveSession();
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(test::readBytes(sessionPath), expected);
}

// The recorder appends while the session is saved: every file holds a state that there was.
TEST_F(SessionFile, HoldsASnapshotOfAGrowingMacro) {
    profiles = {Profile{"a", "x", {}}};
    currentProfile = 0;
    constexpr int total = 30000;
    std::thread recorder([] {
        for (int i = 0; i < total; ++i) {
            const std::lock_guard lock(profileMutex);
            lockedCurrentProfile()->events.append({0, 0.0, i, 0, 0, 0, 0, 0});
        }
    });
    std::size_t before = 0;
    for (int saves = 0; saves < 20; ++saves) {
        saveSession();
        auto lines = openLines(sessionPath);
        if (!lines) continue;  // every save so far met a busy list
        const auto session = readSession(*lines);
        ASSERT_TRUE(session);
        ASSERT_EQ(session->profiles.size(), 1U);
        const auto& events = session->profiles[0].events;
        ASSERT_GE(events.size(), before);
        before = events.size();
        for (std::size_t i = 0; i < events.size(); ++i)
            ASSERT_EQ(events[i].x, static_cast<std::int32_t>(i));
    }
    recorder.join();
    saveSession();
    auto lines = openLines(sessionPath);
    ASSERT_TRUE(lines);
    EXPECT_EQ(readSession(*lines)->profiles[0].events.size(), static_cast<std::size_t>(total));
}

}  // namespace
}  // namespace ravelin
