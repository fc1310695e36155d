// The drag of a frameless panel window by its header, without a window system: where the window
// goes, when it hovers over the main window, and whether dropping it docks the panel.
#pragma once

#include <optional>

#include "app/window_placement.h"
#include "input/platform.h"

namespace ravelin {

class PanelDrag {
  public:
    void begin(platform::Point cursor, const Rect& window);
    bool dragging() const { return dragging_; }

    struct Step {
        platform::Point corner;     // where the window's top-left corner goes
        std::optional<bool> hover;  // to be told to the main window when it has changed
    };
    // The cursor has moved during the drag. Without a main window nothing is hovered over.
    Step move(platform::Point cursor, const std::optional<Rect>& mainWindow);

    struct End {
        bool hoverEnds = false;  // to be told to the main window
        bool docks = false;
    };
    // The button was released or the mouse was taken away; only the former docks the panel.
    End end(bool released);

  private:
    bool dragging_ = false;
    bool overMainWindow_ = false;
    platform::Point cursorAtStart_{};
    Rect windowAtStart_{};
};

}  // namespace ravelin
