#include "app/engine_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>

namespace ravelin {
namespace {

TEST(ThreadGroup, JoinsByName) {
    std::atomic<bool> done{false};
    ThreadGroup group;
    group.start({"worker", [&] { done = true; }});
    group.join("worker");
    EXPECT_TRUE(done);
}

TEST(ThreadGroup, PassesOverNamesThatWereNotStartedOrAlreadyJoined) {
    // One that still runs when the others are joined; who waits for it waits in vain.
    std::promise<void> end;
    ThreadGroup group;
    group.start({"busy", [&] { end.get_future().wait(); }});
    group.start({"worker", [] {}});
    auto joined = std::async(std::launch::async, [&] {
        group.join("worker");
        group.join("worker");
        group.join("nobody");
    });
    EXPECT_EQ(joined.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    end.set_value();
    EXPECT_NO_THROW(joined.get());
}

TEST(ThreadGroup, ABodyThatThrowsEndsItsThreadOnly) {
    std::atomic<bool> done{false};
    ThreadGroup group;
    group.start({"broken", [] { throw std::runtime_error("broken"); }});
    group.start({"sound", [&] { done = true; }});
    group.joinAll();
    EXPECT_TRUE(done);
}

TEST(ThreadGroup, WaitsForItsThreadsWhenItGoes) {
    std::atomic<bool> done{false};
    {
        ThreadGroup group;
        group.start({"worker", [&] { done = true; }});
    }
    EXPECT_TRUE(done);
}

}  // namespace
}  // namespace ravelin
