// The program makes way for an installer: what is saved and ended by then, and what is left when
// the installer does not start.
#include "app/installer_hand_off.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <future>

#include "app/child_panel_table.h"
#include "app/child_panels.h"
#include "persistence/profiles.h"
#include "persistence/session_file.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/installer_program.h"

namespace ravelin {
namespace {

namespace fs = std::filesystem;

class InstallerHandOff : public test::EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        sessionPath = folder_.file("session.dat");
        profiles.at(0).name = "As it was last";
        ASSERT_TRUE(startChildPanel("panel-ui", "--child \"stays\""));
        panel_ = GetProcessId(childPanelTable().at("panel-ui").get());
        held_.reset(OpenProcess(SYNCHRONIZE, FALSE, panel_));
        installer_.watch(sessionPath, panel_);
    }
    void TearDown() override {
        endAllChildPanels();
        sessionPath.clear();
        EngineTest::TearDown();
    }

    void expectSavedAndEnded() const {
        EXPECT_NE(test::readBytes(sessionPath).find("PROFILE:As it was last"), std::string::npos);
        EXPECT_EQ(WaitForSingleObject(held_.get(), 20'000), WAIT_OBJECT_0);
        EXPECT_FALSE(isPanelOut("panel-ui"));
    }

    // Keeps everybody from the installer for as long as the panel's process lives.
    void makePanelHoldInstaller() const {
        const FileHandle file(CreateFileW(installer_.path().c_str(), GENERIC_READ, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(file);
        ASSERT_TRUE(DuplicateHandle(GetCurrentProcess(), file.get(),
                                    childPanelTable().at("panel-ui").get(), nullptr, 0, FALSE,
                                    DUPLICATE_SAME_ACCESS));
    }

    // The system says on its own that a program cannot be started; the user sees it and goes on.
    static std::string launchAndDismissMessages(const std::wstring& path) {
        auto answer = std::async(std::launch::async, [&path] {
            HeldInstaller installer(path, nullptr);
            return LaunchInstaller(installer);
        });
        test::eventually([&answer] {
            for (HWND box = nullptr;
                 (box = FindWindowExW(nullptr, box, L"#32770", nullptr)) != nullptr;) {
                DWORD process = 0;
                GetWindowThreadProcessId(box, &process);
                if (process == GetCurrentProcessId()) PostMessageW(box, WM_CLOSE, 0, 0);
            }
            return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
        return answer.get();
    }

    test::InstallerProgram installer_;
    DWORD panel_ = 0;
    ProcessHandle held_;  // the panel's, so that its id is not given away

  private:
    test::TempFolder folder_;
};

TEST_F(InstallerHandOff, SavesTheSessionAndEndsThePanelsBeforeTheInstallerRuns) {
    makePanelHoldInstaller();
    EXPECT_EQ(launchAndDismissMessages(installer_.path()), "");
    const auto story = installer_.story();
    EXPECT_TRUE(story.starts_with("/VERYSILENT ")) << story;
    EXPECT_NE(story.find(" /RVNUPDATE=1\nprocess ended\n"), std::string::npos) << story;
    EXPECT_NE(story.find("PROFILE:As it was last"), std::string::npos) << story;
    expectSavedAndEnded();
}

TEST_F(InstallerHandOff, DoesAllThatForAnInstallerThatDoesNotStartToo) {
    fs::remove(installer_.path());
    EXPECT_EQ(launchAndDismissMessages(installer_.path()),
              "Update failed: could not start the installer.");
    expectSavedAndEnded();
    EXPECT_FALSE(fs::exists(installer_.folder()));
}

}  // namespace
}  // namespace ravelin
