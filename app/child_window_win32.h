// The frameless window of a child panel: its shape and its drag by the page's header.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>

#include "app/window_subclass_win32.h"
#include "input/platform.h"

namespace ravelin {

// What happens to the window, and during a drag of it.
struct PanelWindowEvents {
    std::function<void(bool over)> hover;  // the cursor came over the main window, or left it
    std::function<void()> dockBack;        // dropped on the main window
    // Sees every message before the window does.
    std::function<void(const WindowMessage&)> follow{};
};

struct DraggedWindow;

// Shapes a view's top-level window and subclasses it; the subclass lives as long as the window.
// All on the window's thread.
class ChildWindow {
  public:
    // Takes the frame off and, when a corner is given, puts the window there at its default size.
    ChildWindow(HWND window, std::optional<platform::Point> corner, PanelWindowEvents events);
    ChildWindow(const ChildWindow&) = delete;
    ChildWindow& operator=(const ChildWindow&) = delete;
    ~ChildWindow();

    // From here on the window follows the cursor until the button is released; nothing happens when
    // it is not held any more.
    void beginDrag();
    // Sizes the window around content of this size, in pixels at 96 DPI, in one step. Not by way of
    // the view, which gives a window that it sizes the frame of one that the user may size.
    void setContentSize(std::int32_t width, std::int32_t height);

  private:
    std::unique_ptr<DraggedWindow> state_;
};

inline constexpr std::int32_t childWidth = 450;
inline constexpr std::int32_t childHeight = 400;

}  // namespace ravelin
