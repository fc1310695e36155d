#include "app/view_wait.h"

#include "app/view_failure.h"

namespace ravelin {

WaitStep ViewWait::step(std::uint64_t elapsed) {
    if (answer_ && endsWithoutWord(*answer_)) return WaitStep::giveUp;
    timedOut_ = elapsed >= limit_;
    if (timedOut_) return WaitStep::giveUp;
    if (asking_ || elapsed < question_) return WaitStep::goOn;
    asking_ = true;
    return WaitStep::askEngine;
}

void ViewWait::answered(std::uint32_t answer, std::uint64_t elapsed) {
    answer_ = answer;
    asking_ = false;
    question_ = elapsed + nextQuestion;
}

}  // namespace ravelin
