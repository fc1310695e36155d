// The hidden window of the input thread: it receives raw mouse motion whichever program is in the
// foreground, and learns when the user's session is left.
#pragma once

#include "support/win32_handles.h"

namespace ravelin {

inline constexpr wchar_t rawInputWindowClass[] = L"RawInputHiddenWindow";

// Registered as long as it lives. Made and destroyed on the input thread.
class RawInputWindow {
  public:
    RawInputWindow();
    // Asks again for the news that the session was left, if Windows has refused them so far: at
    // log-on the service that tells them may not run yet. To be called now and then.
    void askForSessionNews();

  private:
    // Released from the last to the first.
    WindowClass class_;
    WindowHandle window_;
    SessionNotification notification_;
};

}  // namespace ravelin
