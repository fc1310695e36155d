// Where the program's windows go: the arithmetic, without a window system.
//
// Screen pixels throughout; right and bottom lie just outside.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace ravelin {

struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    std::int32_t width() const { return right - left; }
    std::int32_t height() const { return bottom - top; }
    bool operator==(const Rect&) const = default;
};

struct Monitor {
    Rect area;
    Rect workArea;  // without the taskbar
};

// The main window as the settings keep it: the rectangle that it has when it is neither maximised
// nor minimised.
struct WindowPlacement {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool maximized = false;
    bool saved = false;  // a position was saved once
    bool operator==(const WindowPlacement&) const = default;
};

// Where the main window goes at start-up, given the monitor that holds the saved top-left corner:
// the saved place and size, the size cut to the work area. Nothing without a saved position or
// such a monitor.
std::optional<Rect> startRectangle(const WindowPlacement& saved,
                                   const std::optional<Monitor>& monitor);

// The normal rectangle as the system's window placement tells it, which counts from the corner of
// the monitor's work area, in screen pixels.
Rect fromWorkspace(const Rect& normal, const Monitor& monitor);

// What a resize asks of a window.
struct ResizableWindow {
    std::function<void(std::int32_t width, std::int32_t height)> setContentSize;
    std::function<std::optional<Rect>()> rectangle;
    std::function<void(std::int32_t left, std::int32_t top)> moveTo;
};

// Gives the window's content the size, keeping the whole window within the height of the screen:
// too tall a window is made lower in proportion, and one that reaches below the work area moves up,
// but never above its top. Nothing happens for a size below 1 or a work area without room. Without
// a monitor the primary screen's height counts.
void resizeWithinScreen(const ResizableWindow& window, const std::optional<Monitor>& monitor,
                        std::int32_t primaryScreenHeight, std::int32_t width, std::int32_t height);

}  // namespace ravelin
