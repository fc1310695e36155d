#include "persistence/legacy_files.h"

#include "data_folder_fixture.h"
#include "persistence/data_folder.h"
#include "persistence/session_file.h"
#include "support/file_system.h"

namespace ravelin {
namespace {

class LegacyFiles : public ::testing::Test {
  protected:
    static std::string in(const test::TempFolder& folder, const std::string& name) {
        return folder.path() + pathSeparator + name;
    }
    static void put(const std::string& path) { test::writeBytes(path, "from " + path); }
    // What was written at `from` lies at `to` now.
    static void expectMoved(const std::string& from, const std::string& to) {
        EXPECT_FALSE(fileExists(from)) << from;
        EXPECT_EQ(test::readBytes(to), "from " + from);
    }
    static void expectStayed(const std::string& path) {
        EXPECT_EQ(test::readBytes(path), "from " + path);
    }
    std::string migrated() const { return migratedSessionPath(data.path(), program.path()); }

    test::TempFolder data;
    test::TempFolder program;
    std::string session = in(data, "session.dat");
    std::string newer = in(data, "session.rvnmacro");
    std::string older = in(data, "session.mcr");
    std::string oldest = in(program, "session.mcr");
};

TEST_F(LegacyFiles, AreNotNeeded) {
    EXPECT_EQ(migrated(), session);
    EXPECT_FALSE(fileExists(session));
}

TEST_F(LegacyFiles, StayWhenThereIsASession) {
    for (const auto& path : {session, newer, older, oldest})
        put(path);
    EXPECT_EQ(migrated(), session);
    for (const auto& path : {session, newer, older, oldest})
        expectStayed(path);
}

TEST_F(LegacyFiles, BecomeTheSessionNewestFirst) {
    for (const auto& path : {newer, older, oldest})
        put(path);
    EXPECT_EQ(migrated(), session);
    expectMoved(newer, session);
    expectStayed(older);
    expectStayed(oldest);

    deleteFile(session);
    EXPECT_EQ(migrated(), session);
    expectMoved(older, session);
    expectStayed(oldest);

    deleteFile(session);
    EXPECT_EQ(migrated(), session);
    expectMoved(oldest, session);
}

TEST_F(LegacyFiles, ServeAsTheSessionWhenTheyCannotBeMoved) {
    put(oldest);
    // A folder in the session's place stops every move.
    std::filesystem::create_directory(session);
    EXPECT_EQ(migrated(), oldest);
    expectStayed(oldest);
    put(older);
    EXPECT_EQ(migrated(), older);
    expectStayed(older);
}

TEST_F(LegacyFiles, BesideTheExecutableMoveIntoTheDataFolder) {
    const auto old = in(program, "theme.txt");
    const auto now = in(data, "theme.txt");
    migrateLegacyFile(now, "theme.txt", program.path());
    EXPECT_FALSE(fileExists(now));
    put(old);
    migrateLegacyFile(now, "theme.txt", program.path());
    expectMoved(old, now);
    put(old);
    migrateLegacyFile(now, "theme.txt", program.path());
    expectStayed(old);
    EXPECT_EQ(test::readBytes(now), "from " + old);
}

TEST_F(LegacyFiles, StayWhereTheyAreWithoutADataFolder) {
    const auto old = in(program, "theme.txt");
    put(old);
    migrateLegacyFile(in(data, "missing/theme.txt"), "theme.txt", program.path());
    expectStayed(old);
}

TEST_F(LegacyFiles, BesideTheExecutableAreDeleted) {
    put(in(program, "status.txt"));
    put(in(data, "status.txt"));
    deleteLegacyFile("status.txt", program.path());
    EXPECT_FALSE(fileExists(in(program, "status.txt")));
    expectStayed(in(data, "status.txt"));
    deleteLegacyFile("status.txt", program.path());
}

class LegacyFilesOfThisProgram : public test::DataFolderFixture {
  protected:
    ~LegacyFilesOfThisProgram() override {
        sessionPath.clear();
        deleteFile(beside("session.mcr"));
        deleteFile(beside("theme.txt"));
    }
    static std::string beside(const std::string& name) {
        return executableFolder() + pathSeparator + name;
    }
};

TEST_F(LegacyFilesOfThisProgram, AreMovedAndDeletedAtStart) {
    test::writeBytes(beside("session.mcr"), "old session");
    migrateSessionFiles();
    EXPECT_EQ(sessionPath, dataFolder() + pathSeparator + "session.dat");
    EXPECT_EQ(test::readBytes(sessionPath), "old session");
    EXPECT_FALSE(fileExists(beside("session.mcr")));

    test::writeBytes(beside("theme.txt"), "old theme");
    migrateLegacyFile(dataFile("theme.txt"), "theme.txt");
    EXPECT_EQ(test::readBytes(dataFilePath("theme.txt")), "old theme");
    test::writeBytes(beside("theme.txt"), "older theme");
    deleteLegacyFile("theme.txt");
    EXPECT_FALSE(fileExists(beside("theme.txt")));
}

TEST_F(LegacyFilesOfThisProgram, AreLookedForBeforeTheDataFolderExists) {
    migrateSessionFiles();
    EXPECT_EQ(sessionPath, dataFolder() + pathSeparator + "session.dat");
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder()));
    EXPECT_FALSE(fileExists(sessionPath));
}

}  // namespace
}  // namespace ravelin
