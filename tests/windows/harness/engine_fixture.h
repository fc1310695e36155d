// Fixture of the tests in which the input thread watches the desktop.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <thread>

namespace ravelin::test {

// The input thread, from the moment when its hooks are installed.
class InputThreadRun {
  public:
    InputThreadRun();
    InputThreadRun(const InputThreadRun&) = delete;
    InputThreadRun& operator=(const InputThreadRun&) = delete;
    ~InputThreadRun();

    // Its message-only window; null when it has none.
    static HWND hiddenWindow();

  private:
    std::thread thread_;
};

// Every test begins with the defaults of a fresh start: one empty profile, nothing held, no
// request.
class EngineTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;
};

}  // namespace ravelin::test
