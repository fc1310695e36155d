// The application settings while other programs have their file.
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "persistence/app_settings.h"
#include "support/win32_handles.h"
#include "tests/support/environment.h"
#include "tests/support/live_state.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

class LockedSettings : public ::testing::Test {
  protected:
    LockedSettings() {
        test::setEnvironment("LOCALAPPDATA", localAppData.path());
        test::resetLiveState();
        localAppData.write("Ravelin/appsettings.txt", written);
    }
    ~LockedSettings() override {
        // Nothing that a test left unread may be kept by the next one's save.
        std::filesystem::remove_all(file);
        saveAppSettings();
        test::unsetEnvironment("LOCALAPPDATA");
        test::resetLiveState();
    }

    FileHandle openedFor(DWORD access, DWORD sharing) const {
        FileHandle other(
            CreateFileA(file.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(other);
        return other;
    }

    static constexpr char written[] = "alwaysOnTop=1\r\n";
    test::TempFolder localAppData;
    const std::string file = localAppData.file("Ravelin/appsettings.txt");
    const std::string copy = file + ".unread";
};

TEST_F(LockedSettings, AreReadWhileAnotherProgramWritesThem) {
    const auto writer = openedFor(GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    loadAppSettings();
    EXPECT_TRUE(appSettings.alwaysOnTop);
}

TEST_F(LockedSettings, AreWaitedForWhileAnotherProgramHasThemToItself) {
    auto other = openedFor(GENERIC_READ, 0);
    std::thread letsGo([&other] {
        Sleep(150);  // in the second that is waited for
        other.reset();
    });
    loadAppSettings();
    letsGo.join();
    EXPECT_TRUE(appSettings.alwaysOnTop);
    saveAppSettings();
    EXPECT_FALSE(std::filesystem::exists(copy));
}

TEST_F(LockedSettings, AreTheDefaultsAndKeptWhenTheyStayUnreadable) {
    auto other = openedFor(GENERIC_READ, 0);
    loadAppSettings();
    EXPECT_FALSE(appSettings.alwaysOnTop);
    appSettings.windowX = 5;  // as the window's place is stored
    saveAppSettings();
    other.reset();
    EXPECT_EQ(test::readBytes(file), written);
    saveAppSettings();
    EXPECT_EQ(test::readBytes(copy), written);
    EXPECT_NE(test::readBytes(file).find("windowX=5"), std::string::npos);
}

TEST_F(LockedSettings, AreTheDefaultsWhenAPartIsLocked) {
    const auto other = openedFor(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_NE(LockFile(other.get(), 0, 0, 5, 0), 0);
    if (test::readBytes(file) == written) GTEST_SKIP() << "locks keep nobody from reading here";
    loadAppSettings();
    EXPECT_FALSE(appSettings.alwaysOnTop);
    UnlockFile(other.get(), 0, 0, 5, 0);
    saveAppSettings();
    EXPECT_EQ(test::readBytes(copy), written);
}

TEST_F(LockedSettings, AreTheDefaultsWhenAFolderIsInTheirPlace) {
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    loadAppSettings();
    EXPECT_FALSE(appSettings.alwaysOnTop);
    saveAppSettings();
    EXPECT_TRUE(std::filesystem::is_directory(file));
}

}  // namespace
}  // namespace ravelin
