// The engine with its four threads running, from the start of the program to its end.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <thread>
#include <vector>

#include "input/engine_state.h"
#include "persistence/profiles.h"

namespace ravelin::test {

class EngineThreads : public testing::Test {
  protected:
    EngineThreads();
    ~EngineThreads() override;

    // Everything as at the start of the program, before start() or after quit().
    static void restart();
    // Clicker, key spammer, player and command thread.
    void start();
    // Clears running, sets quit and joins everything, as the program does at its end. A thread that
    // does not end within a minute ends the test program.
    void quit();
    // Runs beside the workers until quit() joins it.
    void alongside(std::function<void()> body);
    // Comes back when the condition holds. The workers bring it about; a minute without it ends the
    // test program.
    static void await(const std::function<bool()>& condition);

  private:
    std::vector<std::future<void>> threads_;
};

}  // namespace ravelin::test
