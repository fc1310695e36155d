// The two low-level hooks: their procedures turn an event into plain values, ask the capture
// handlers and swallow what those claim. A hook that Windows refuses or removes is installed again.
#pragma once

#include "input/hook_watch.h"
#include "support/win32_handles.h"

namespace ravelin {

LRESULT CALLBACK keyboardHookProc(int code, WPARAM message, LPARAM event) noexcept;
LRESULT CALLBACK mouseHookProc(int code, WPARAM message, LPARAM event) noexcept;

// What the input thread has seen of its hooks. Of that thread alone.
inline HookWatch hookWatch;

// Installed as long as it lives. Made, used and destroyed on the input thread.
class InputHooks {
  public:
    InputHooks();
    // Installs again what is missing or has been removed, at most every five seconds, and counts it
    // in `health`. To be called once or twice a second.
    void putBackLost();

  private:
    void noteMissing() const;

    HookHandle mouseHook_;
    HookHandle keyboardHook_;
};

}  // namespace ravelin
