#include "app/panel_drag.h"

#include <utility>

namespace ravelin {
namespace {

bool contains(const Rect& r, platform::Point p) {
    return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

}  // namespace

void PanelDrag::begin(platform::Point cursor, const Rect& window) {
    cursorAtStart_ = cursor;
    windowAtStart_ = window;
    overMainWindow_ = false;
    dragging_ = true;
}

PanelDrag::Step PanelDrag::move(platform::Point cursor, const std::optional<Rect>& mainWindow) {
    Step step{.corner = {windowAtStart_.left + cursor.x - cursorAtStart_.x,
                         windowAtStart_.top + cursor.y - cursorAtStart_.y},
              .hover = std::nullopt};
    if (!mainWindow) return step;
    const bool over = contains(*mainWindow, cursor);
    if (std::exchange(overMainWindow_, over) != over) step.hover = over;
    return step;
}

PanelDrag::End PanelDrag::end(bool released) {
    dragging_ = false;
    const bool wasOver = std::exchange(overMainWindow_, false);
    return {.hoverEnds = wasOver, .docks = released && wasOver};
}

}  // namespace ravelin
