// The child window that shows the page: it paints the newest frame and hands every other message
// to whoever forwards input.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "frame_decoder.h"

namespace ravelin::browser {

class ScreenWindow {
  public:
    // Answers a message, or leaves it to the system by answering nothing.
    using MessageHandler = std::function<std::optional<LRESULT>(UINT, WPARAM, LPARAM)>;

    ScreenWindow(HWND parent, MessageHandler handler);
    ~ScreenWindow();
    ScreenWindow(const ScreenWindow&) = delete;
    ScreenWindow& operator=(const ScreenWindow&) = delete;

    HWND handle() const { return window_; }
    // The upper left corner on the screen, in pixels.
    POINT corner() const;
    void place(const RECT& bounds);
    void show(bool visible);
    // Paints at once. Where the frame does not reach, the window stays white.
    void present(Frame frame);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM lng);
    void paint() const;

    HWND window_ = nullptr;
    MessageHandler handler_;
    Frame frame_;
};

}  // namespace ravelin::browser
