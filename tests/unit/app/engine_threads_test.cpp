#include "app/engine_threads.h"

#include <gtest/gtest.h>

#include <atomic>
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
    ThreadGroup group;
    group.start({"worker", [] {}});
    group.join("worker");
    group.join("worker");
    group.join("nobody");
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
