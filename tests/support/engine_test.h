// Base of the engine's unit tests: every test starts with a new engine on a new desktop.
#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "input/command_pass.h"
#include "input/engine_state.h"
#include "input/requests.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/support/engine_reset.h"
#include "tests/support/simulated_desktop.h"

namespace ravelin::test {

class EngineTest : public testing::Test {
  protected:
    EngineTest() { resetEngine(); }

    // A command thread that is always quick: every signal is followed by a pass.
    static void passOnEverySignal() { desktop.onCommand = runCommandPass; }
    // Ends the program at this moment, as the entry point does.
    static void quitAt(double seconds) {
        desktop.at(seconds, [] {
            engine.running.exchange(false);
            platform::signal(platform::Event::quit);
        });
    }
    static void requestAt(double seconds, Requests::Flag& request) {
        desktop.at(seconds, [&request] { postRequest(request); });
    }
    static EventList& macro() {
        return profiles.at(static_cast<std::size_t>(currentProfile)).events;
    }
};

// Moments in whole milliseconds, to be compared without the microseconds that reading the clock
// takes.
inline std::vector<std::int64_t> milliseconds(const std::vector<double>& seconds) {
    std::vector<std::int64_t> result;
    for (const double moment : seconds)
        result.push_back(std::llround(moment * 1000));
    return result;
}

}  // namespace ravelin::test
