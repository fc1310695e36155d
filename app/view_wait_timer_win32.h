// Watches over the time that the view library takes for a view. For the Windows half only.
#pragma once

#include <memory>

#include "app/view_failure.h"

namespace ravelin {

// While it lives, the library's wait on this thread, which runs a message loop, is ended when it
// has lasted until its limit or when the engine has refused the view. One at a time a thread.
class ViewWaitTimer {
  public:
    ViewWaitTimer();
    ViewWaitTimer(const ViewWaitTimer&) = delete;
    ViewWaitTimer& operator=(const ViewWaitTimer&) = delete;
    ~ViewWaitTimer();

    // Why the library has given no view. Asks the engine when nobody has yet.
    ViewFailure failure();

  private:
    struct State;

    std::shared_ptr<State> state_;
};

}  // namespace ravelin
