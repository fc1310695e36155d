#include "app/window_placement.h"

#include <algorithm>

namespace ravelin {

namespace {

// Room left free above or below a window that was made to fit.
constexpr std::int32_t heightMargin = 20;

}  // namespace

std::optional<Rect> startRectangle(const WindowPlacement& saved,
                                   const std::optional<Monitor>& monitor) {
    if (!saved.saved || !monitor) return std::nullopt;
    const std::int32_t width = std::min(saved.width, monitor->workArea.width());
    const std::int32_t height = std::min(saved.height, monitor->workArea.height());
    return Rect{saved.x, saved.y, saved.x + width, saved.y + height};
}

Rect fromWorkspace(const Rect& normal, const Monitor& monitor) {
    const std::int32_t dx = monitor.workArea.left - monitor.area.left;
    const std::int32_t dy = monitor.workArea.top - monitor.area.top;
    return {normal.left + dx, normal.top + dy, normal.right + dx, normal.bottom + dy};
}

void resizeWithinScreen(const ResizableWindow& window, const std::optional<Monitor>& monitor,
                        std::int32_t primaryScreenHeight, std::int32_t width, std::int32_t height) {
    if (width < 1 || height < 1) return;
    const std::int32_t top = monitor ? monitor->workArea.top : 0;
    const std::int32_t bottom = monitor ? monitor->workArea.bottom : primaryScreenHeight;
    const std::int32_t available = bottom - top - heightMargin;
    if (available <= 0) return;

    window.setContentSize(width, height);
    auto frame = window.rectangle();
    if (frame && frame->height() > available) {
        const double scale = static_cast<double>(available) / frame->height();
        const auto fitting = static_cast<std::int32_t>(height * scale);
        if (fitting > 0) {
            window.setContentSize(width, fitting);
            frame = window.rectangle();
        }
    }
    if (frame && frame->bottom > bottom) {
        window.moveTo(frame->left, std::max(bottom - frame->height(), top));
    }
}

}  // namespace ravelin
