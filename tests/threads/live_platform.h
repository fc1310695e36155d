// The machine made of standard primitives: real threads, real clock, real waits, and a desktop that
// keeps count of the input it gets and of what is held down.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

namespace ravelin::test {

struct SentCounts {
    std::atomic<std::uint64_t> mouse{0};
    std::atomic<std::uint64_t> keys{0};
    std::atomic<std::uint64_t> leftUps{0};
    std::atomic<std::uint64_t> rightUps{0};

    void clear() { mouse = keys = leftUps = rightUps = 0; }
};

inline SentCounts sentCounts;

// The buttons and keys that are down by what was sent.
class HeldInput {
  public:
    void mouse(std::uint32_t flags);
    void key(std::uint16_t scan, bool down);
    void releaseAll();
    // Names of what is down, such as "left key 65"; empty when nothing is.
    std::string names() const;

  private:
    mutable std::mutex mutex_;
    std::array<bool, 3> buttons_{};  // left, right, middle
    std::array<bool, 256> keys_{};   // by scan code, which is the virtual key here
};

inline HeldInput heldInput;

// As at the start of the program: quit and every wake are down.
void lowerAllEvents();

}  // namespace ravelin::test
