// The browser engine behind a window, told what happens to that window. The view library tells it
// of sizes alone.
#pragma once

#include <windows.h>

#include <functional>

#include "app/window_subclass_win32.h"

namespace ravelin {

// All on the window's thread.
class ViewHost {
  public:
    // The controller is a COM interface pointer that the view owns; null when there is none. The
    // page of a minimised window counts as hidden, unless `staysVisible` says otherwise: the timers
    // of a hidden page run once a second at most, and after a while once a minute.
    explicit ViewHost(void* controller, std::function<bool()> staysVisible = {});

    // Takes a message of the window: hands the keyboard focus on to the page, tells the page where
    // its window is, and when it cannot be seen.
    void follow(const WindowMessage& message);
    // Hands the keyboard focus on when the window has it already.
    void takeFocusFrom(HWND window);
    // Asks `staysVisible` again.
    void updateVisibility();

  private:
    void* controller_;
    std::function<bool()> staysVisible_;
    bool minimised_ = false;
    bool visible_ = true;
};

}  // namespace ravelin
