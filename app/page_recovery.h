// What to do when a process of the browser engine has ended unexpectedly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ravelin {

// As the engine counts them; all others are processes that it starts again by itself.
enum class EngineProcess : int { browser = 0, mainPage = 1 };

enum class Recovery {
    none,
    showPageAgain,
    giveUp,  // there is no view any more, or none that lasts
};

// A page whose process ends is shown again, but not one that ends its process again and again.
class PageRecovery {
  public:
    static constexpr std::size_t mostTimes = 3;
    static constexpr std::uint64_t within = 60'000;  // milliseconds

    // `now` in milliseconds, of any clock that only goes forward.
    Recovery judge(EngineProcess ended, std::uint64_t now);

  private:
    std::array<std::uint64_t, mostTimes> shownAgain_{};  // a ring
    std::size_t count_ = 0;
};

}  // namespace ravelin
