// A window on a thread of its own that notes what reaches it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/windows/harness/event_log.h"
#include "tests/windows/harness/message_thread.h"

namespace ravelin::test {

struct SeenMessage {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

class TestWindow {
  public:
    // Visible at the place, without a frame, in the foreground and with the keyboard focus.
    explicit TestWindow(const std::wstring& title, RECT place = {100, 100, 500, 400},
                        DWORD style = WS_POPUP);
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow();

    HWND handle() const { return window_; }
    // Runs a function on the window's thread and waits for its end.
    void call(const std::function<void()>& function) const;
    // Destroys it before its end.
    void destroy() const;

    EventLog<SeenMessage> messages;

    bool awaitMessage(UINT message) {
        return messages.awaitOne([=](const SeenMessage& seen) { return seen.message == message; });
    }
    bool received(UINT message) const;

  private:
    HWND window_ = nullptr;
    MessageThread thread_;
};

// Whether the window is in the foreground and its thread's focus is in it.
bool hasFocus(HWND window);

}  // namespace ravelin::test
