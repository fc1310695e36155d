#include "tests/threads/engine_threads.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "input/auto_clicker.h"
#include "input/command_pass.h"
#include "input/key_spammer.h"
#include "input/platform.h"
#include "input/player.h"
#include "tests/support/engine_reset.h"
#include "tests/threads/live_platform.h"

namespace ravelin::test {
namespace {

// Far beyond what any of it takes on the busiest machine, and far below the waits that a worker
// would sit out if nothing woke it.
constexpr auto patience = std::chrono::minutes(1);

[[noreturn]] void giveUp(const char* what) {
    std::fprintf(stderr, "%s does not happen\n", what);
    std::abort();
}

}  // namespace

EngineThreads::EngineThreads() {
    restart();
}

void EngineThreads::restart() {
    resetEngine();
    lowerAllEvents();
    sentCounts.clear();
    heldInput.releaseAll();
}

EngineThreads::~EngineThreads() {
    quit();
}

void EngineThreads::start() {
    for (auto* worker : {runAutoClicker, runKeySpammer, runPlayer, runCommandThread})
        alongside(worker);
}

void EngineThreads::alongside(std::function<void()> body) {
    threads_.push_back(std::async(std::launch::async, std::move(body)));
}

void EngineThreads::quit() {
    engine.running.exchange(false);
    platform::signal(platform::Event::quit);
    for (auto& thread : threads_)
        if (thread.wait_for(patience) != std::future_status::ready) giveUp("the end of a thread");
    for (auto& thread : std::exchange(threads_, {}))
        thread.get();
}

void EngineThreads::await(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) giveUp("what a test waits for");
        std::this_thread::yield();
    }
}

}  // namespace ravelin::test
