// What to do while the view library is making a view, by the time that it has taken.
#pragma once

#include <cstdint>
#include <optional>

namespace ravelin {

enum class WaitStep {
    goOn,
    askEngine,  // whether it would give a view at all; answered() takes what it says
    giveUp,
};

// The library does not say that the engine has refused it. So an engine that takes its time is
// asked by the program itself, and a refusal ends the wait at once. Milliseconds since the wait
// began.
class ViewWait {
  public:
    // Later than most engines take for a view, so that one that works is not asked for two.
    static constexpr std::uint64_t firstQuestion = 2'000;
    static constexpr std::uint64_t nextQuestion = 10'000;  // after an answer that refused nothing

    explicit ViewWait(std::uint64_t limit) : limit_(limit) {}

    // One question at a time: `askEngine` does not come again before the answer.
    WaitStep step(std::uint64_t elapsed);
    void answered(std::uint32_t answer, std::uint64_t elapsed);

    // What the engine said last.
    std::optional<std::uint32_t> answer() const { return answer_; }
    // Whether the wait has lasted until its limit.
    bool timedOut() const { return timedOut_; }

  private:
    std::uint64_t limit_;
    std::uint64_t question_ = firstQuestion;
    bool asking_ = false;
    bool timedOut_ = false;
    std::optional<std::uint32_t> answer_;
};

}  // namespace ravelin
