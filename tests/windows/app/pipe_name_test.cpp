// The pipe server while another process has the pipe's name, as another user's main process may.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "app/pipe_client.h"
#include "app/pipe_server.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/pipe_clients.h"
#include "tests/windows/harness/pipe_servers.h"

namespace ravelin {
namespace {

using namespace std::chrono_literals;
using test::eventually;

class TakenPipeName : public test::EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        engine.panelHover.exchange(false);
        ipcUnavailable.exchange(false);
        other_.emplace(test::ownPath());
        ASSERT_TRUE(other_->listens());
    }
    void TearDown() override {
        if (server_.joinable()) quit();
        engine.running.exchange(true);
        ipcUnavailable.exchange(false);
        EngineTest::TearDown();
    }

    void startServer(std::chrono::milliseconds nameRetry) {
        engine.running.exchange(true);
        server_ = std::thread([this, nameRetry] {
            servePipe(nameRetry);
            ended_.exchange(true);
        });
    }
    // False when the server does not notice within the patience of a test.
    bool quit() {
        engine.running.exchange(false);
        platform::signal(platform::Event::quit);
        const bool noticed = eventually([this] { return ended_.load(); });
        if (noticed) server_.join();
        return noticed;
    }
    static bool isTold() {
        return eventually([] { return ipcUnavailable.load(); });
    }

    std::optional<test::PipeServerProgram> other_;
    std::thread server_;
    std::atomic<bool> ended_{false};
};

TEST_F(TakenPipeName, IsToldAndServedAsSoonAsItIsFree) {
    startServer(20ms);
    ASSERT_TRUE(isTold());
    other_.reset();
    EXPECT_TRUE(eventually([] { return !ipcUnavailable.load(); }));
    sendToMainProcess("panelHover", "1");
    EXPECT_TRUE(eventually([] { return engine.panelHover.load(); }));
}

TEST_F(TakenPipeName, IsNotTakenFromTheOtherProcess) {
    startServer(1ms);
    ASSERT_TRUE(isTold());
    EXPECT_EQ(test::sendFromAnotherProcess(test::ownPath(), L"panelHover|1"), 0U);
    EXPECT_EQ(other_->received(), "panelHover|1");
    EXPECT_FALSE(engine.panelHover.load());
}

TEST_F(TakenPipeName, DoesNotHoldUpTheEnd) {
    startServer(1h);
    ASSERT_TRUE(isTold());
    EXPECT_TRUE(quit());
}

}  // namespace
}  // namespace ravelin
