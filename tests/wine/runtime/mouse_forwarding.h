// Mouse messages of the screen window as mouse events of the page.
#pragma once

#include <windows.h>

#include <optional>

#include "page.h"
#include "zoom.h"

namespace ravelin::browser {

class MouseForwarding {
  public:
    MouseForwarding(HWND window, Page& page, const Zoom& zoom)
        : window_(window), page_(page), zoom_(zoom) {}

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
    void sendMove();

    HWND window_;
    Page& page_;
    const Zoom& zoom_;
    int buttons_ = 0;
    POINT last_{};
    bool tracking_ = false;
    // A run of clicks: where, when and with which button it began, and how many so far.
    int clicks_ = 0;
    int clickedButton_ = 0;
    POINT clickedAt_{};
    LONG clickedWhen_ = 0;
    // Moves are merged while the page still works on an earlier one.
    bool moveUnderway_ = false;
    std::optional<Json> waitingMove_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

}  // namespace ravelin::browser
