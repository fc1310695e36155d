// The machine made of standard primitives: real threads, real clock, real waits, and input that is
// counted instead of sent.
#pragma once

#include <atomic>
#include <cstdint>

namespace ravelin::test {

struct SentCounts {
    std::atomic<std::uint64_t> mouse{0};
    std::atomic<std::uint64_t> keys{0};
};

inline SentCounts sentCounts;

// As at the start of the program: quit and every wake are down.
void lowerAllEvents();

}  // namespace ravelin::test
