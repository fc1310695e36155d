#include "persistence/autosave.h"

#include <future>
#include <optional>
#include <thread>

#include "data_folder_fixture.h"
#include "input/engine_state.h"
#include "persistence/session_file.h"
#include "support/file_system.h"
#include "tests/support/simulated_desktop.h"

namespace ravelin {
namespace {

// Another thread that holds the profiles as long as this lives.
class BusyProfiles {
  public:
    BusyProfiles() { locked_.get_future().wait(); }
    ~BusyProfiles() {
        done_.set_value();
        thread_.join();
    }

  private:
    std::promise<void> locked_;
    std::promise<void> done_;
    std::thread thread_{[this] {
        const std::lock_guard lock(profileMutex);
        locked_.set_value();
        done_.get_future().wait();
    }};
};

class Autosave : public test::DataFolderFixture {
  protected:
    Autosave() {
        test::desktop = test::SimulatedDesktop();
        sessionPath = localAppData.file("session.dat");
    }
    ~Autosave() override {
        sessionPath.clear();
        test::desktop = test::SimulatedDesktop();
    }

    // Looks at this moment whether the session was written since the last look.
    void expectSaved(double seconds, bool saved) {
        test::desktop.at(
            seconds, [seconds, saved] { EXPECT_EQ(deleteFile(sessionPath), saved) << seconds; });
    }
    static void quitAt(double seconds) {
        test::desktop.at(seconds, [] { engine.running.exchange(false); });
    }
};

TEST_F(Autosave, SavesEveryFiveSeconds) {
    expectSaved(4.95, false);
    expectSaved(5.05, true);
    expectSaved(9.95, false);
    expectSaved(10.05, true);
    expectSaved(14.95, false);
    expectSaved(15.05, true);
    quitAt(16);
    runAutosave();
}

TEST_F(Autosave, EndsWithinATenthOfASecondAndSavesNoMore) {
    quitAt(7.31);
    expectSaved(7.30, true);
    runAutosave();
    EXPECT_FALSE(fileExists(sessionPath));
    EXPECT_LT(test::desktop.now(), 7.45);
}

TEST_F(Autosave, SavesNothingWhenTheProgramEndsWithTheWait) {
    quitAt(4.99);
    runAutosave();
    EXPECT_FALSE(fileExists(sessionPath));
    engine.running = false;
    runAutosave();
    EXPECT_FALSE(fileExists(sessionPath));
}

TEST_F(Autosave, TriesAgainInTheNextRoundWhenTheProfilesAreBusy) {
    std::optional<BusyProfiles> busy;
    test::desktop.at(4.95, [&busy] { busy.emplace(); });
    expectSaved(5.05, false);
    test::desktop.at(5.05, [&busy] { busy.reset(); });
    expectSaved(9.95, false);
    expectSaved(10.05, true);
    quitAt(11);
    runAutosave();
}

}  // namespace
}  // namespace ravelin
