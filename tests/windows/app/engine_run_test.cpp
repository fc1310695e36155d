// The engine's start and its end, also when the start-up that follows fails.
#include "app/engine_run.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "input/engine_state.h"
#include "tests/support/engine_defaults.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin {
namespace {

using test::InputThreadRun;

class EngineRunTest : public ::testing::Test {
  protected:
    EngineRunTest() { test::restoreEngineDefaults(); }
    ~EngineRunTest() override { test::restoreEngineDefaults(); }

    static void startAndAwait(EngineRun& run) {
        run.start();
        test::eventually([] { return InputThreadRun::hiddenWindow() != nullptr; });
    }
};

TEST_F(EngineRunTest, EndsEverythingWhenTheStartUpFailsAfterIt) {
    try {
        EngineRun run;
        startAndAwait(run);
        throw std::runtime_error("no window");
    } catch (const std::runtime_error&) {
        // Joined: the thread with the hooks has ended, and its window with it.
        EXPECT_EQ(InputThreadRun::hiddenWindow(), nullptr);
        EXPECT_FALSE(engine.running.load());
    }
}

TEST_F(EngineRunTest, StopsOnce) {
    EngineRun run;
    startAndAwait(run);
    run.stop();
    EXPECT_EQ(InputThreadRun::hiddenWindow(), nullptr);
    engine.running = true;
    run.stop();
    EXPECT_TRUE(engine.running.load());
}

TEST_F(EngineRunTest, StopsNothingThatWasNotStarted) {
    { const EngineRun run; }
    EXPECT_TRUE(engine.running.load());
}

}  // namespace
}  // namespace ravelin
