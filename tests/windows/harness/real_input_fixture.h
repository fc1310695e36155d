// Base of the tests that send real input to the watching input thread; skipped where there is none.
#pragma once

#include <optional>

#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/real_input.h"

namespace ravelin::test {

class RealInputTest : public EngineTest {
  protected:
    // A test's own SetUp goes on only when this one did not skip.
    void SetUp() override {
        if (!hasRealInput()) GTEST_SKIP() << "no real input on this system";
        EngineTest::SetUp();
        run_.emplace();
    }
    void TearDown() override {
        run_.reset();
        EngineTest::TearDown();
    }

  private:
    std::optional<InputThreadRun> run_;
};

}  // namespace ravelin::test
