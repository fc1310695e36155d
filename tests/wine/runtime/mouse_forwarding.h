// Mouse messages of the screen window as mouse events of the page.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "display_scale.h"
#include "input_queue.h"

namespace ravelin::browser {

class MouseForwarding {
  public:
    MouseForwarding(HWND window, InputQueue& input, const PageScale& scale)
        : window_(window), input_(input), scale_(scale) {}

    std::optional<LRESULT> handle(UINT message, WPARAM wide, LPARAM lng);
    // Wheel turned with Ctrl held; answered true when that was a zoom step and no scrolling.
    std::function<bool(int steps)> onZoomWheel;

  private:
    void moved(POINT at, WPARAM keys);
    void pressed(const char* button, int mask, POINT at, WPARAM keys);
    void released(const char* button, int mask, POINT at, WPARAM keys);
    void wheel(WPARAM wide, LPARAM lng, bool horizontal);
    void left();
    void captureLost();
    void countClick(int mask, POINT at);
    void send(const char* type, const char* button, POINT at, WPARAM keys, int clicks);
    Json event(const char* type, POINT at, WPARAM keys) const;
    void sendMove(POINT at, WPARAM keys);

    HWND window_;
    InputQueue& input_;
    const PageScale& scale_;
    int buttons_ = 0;
    POINT last_{};
    bool tracking_ = false;
    // A run of clicks: where, when and with which button it began, and how many so far.
    int clicks_ = 0;
    int clickedButton_ = 0;
    POINT clickedAt_{};
    LONG clickedWhen_ = 0;
};

}  // namespace ravelin::browser
