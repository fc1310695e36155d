#include "app/start_up_check.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/script_sink.h"
#include "app/update_notices.h"
#include "tests/support/engine_test.h"

namespace ravelin {
namespace {

class StartUpCheck : public test::EngineTest {
  protected:
    StartUpCheck() {
        setPageScriptSink([this](const std::string& script) { scripts.push_back(script); });
        found.available = true;
        found.manifest.version = "1.0.2";
        found.ownVersion = "1.0.1";
    }
    ~StartUpCheck() override { setPageScriptSink({}); }

    void run() {
        checkAfterStart([this] {
            checkedAt.push_back(test::desktop.now());
            return found;
        });
    }

    UpdateCheckResult found;
    std::vector<double> checkedAt;
    std::vector<std::string> scripts;
};

TEST_F(StartUpCheck, ChecksOnceFiveSecondsAfterTheStart) {
    run();
    EXPECT_EQ(test::milliseconds(checkedAt), (std::vector<std::int64_t>{5000}));
}

TEST_F(StartUpCheck, TellsThePageOfTheOfferedAndTheOwnVersion) {
    run();
    EXPECT_EQ(scripts, (std::vector<std::string>{R"(if (window.onUpdateAvailable) )"
                                                 R"(window.onUpdateAvailable("1.0.2","1.0.1");)"}));
}

TEST_F(StartUpCheck, SaysNothingWithoutAnUpdate) {
    found.available = false;
    run();
    EXPECT_EQ(checkedAt.size(), 1U);
    EXPECT_TRUE(scripts.empty());
}

TEST_F(StartUpCheck, APageThatIsNotThereYetIsNotTold) {
    setPageScriptSink({});
    run();
    setPageScriptSink([this](const std::string& script) { scripts.push_back(script); });
    EXPECT_TRUE(scripts.empty());
}

TEST_F(StartUpCheck, EndsWithTheProgramWithoutChecking) {
    for (const double quit : {0.05, 4.95}) {
        test::resetEngine();
        quitAt(quit);
        run();
        EXPECT_TRUE(checkedAt.empty());
        EXPECT_LT(test::desktop.now(), quit + 0.1);
    }
}

TEST(UpdateNotices, AreScriptsThatNeedNoHandlerInThePage) {
    EXPECT_EQ(updateProgressScript(0, 209715200),
              "if (window.onUpdateProgress) onUpdateProgress(0,209715200);");
    EXPECT_EQ(updateInstallingScript(), "if (window.onUpdateInstalling) onUpdateInstalling();");
    UpdateCheckResult result;
    result.manifest.version = "\"</script>";
    EXPECT_EQ(updateAvailableScript(result),
              "if (window.onUpdateAvailable) window.onUpdateAvailable(\"\\\"</script>\",\"\");");
}

}  // namespace
}  // namespace ravelin
