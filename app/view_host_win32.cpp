#include "app/view_host_win32.h"

#include <utility>

#include "app/browser_interfaces_win32.h"

namespace ravelin {
namespace {

constexpr int focusByProgram = 0;  // COREWEBVIEW2_MOVE_FOCUS_REASON_PROGRAMMATIC

BrowserController& engineOf(void* controller) {
    return *static_cast<BrowserController*>(controller);
}

}  // namespace

ViewHost::ViewHost(void* controller, std::function<bool()> staysVisible)
    : controller_(controller), staysVisible_(std::move(staysVisible)) {}

void ViewHost::follow(const WindowMessage& message) {
    if (controller_ == nullptr) return;
    if (message.id == WM_SETFOCUS) engineOf(controller_).moveFocus(focusByProgram);
    // Without it, lists open and tooltips stand where the window was before.
    if (message.id == WM_MOVE || message.id == WM_MOVING)
        engineOf(controller_).notifyParentWindowPositionChanged();
    if (message.id == WM_SIZE) {
        minimised_ = message.wParam == SIZE_MINIMIZED;
        updateVisibility();
    }
}

void ViewHost::takeFocusFrom(HWND window) {
    if (controller_ != nullptr && window != nullptr && GetFocus() == window)
        engineOf(controller_).moveFocus(focusByProgram);
}

void ViewHost::updateVisibility() {
    const bool visible = !minimised_ || (staysVisible_ && staysVisible_());
    if (controller_ == nullptr || visible == visible_) return;
    visible_ = visible;
    engineOf(controller_).putIsVisible(visible ? TRUE : FALSE);
}

}  // namespace ravelin
