// Key and character messages of the screen window as key events of the page.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "input_queue.h"

namespace ravelin::browser {

class KeyForwarding {
  public:
    explicit KeyForwarding(InputQueue& input) : input_(input) {}

    std::optional<LRESULT> handle(UINT message, WPARAM wide, LPARAM lng);

    // A key that the browser itself may take for its own; true when it did.
    std::function<bool(int virtualKey, int modifiers)> onAccelerator;

  private:
    void keyDown(WPARAM wide, LPARAM lng, bool system);
    void keyUp(WPARAM wide, LPARAM lng, bool system);
    void character(wchar_t unit);

    InputQueue& input_;
    wchar_t firstHalf_ = 0;
};

}  // namespace ravelin::browser
