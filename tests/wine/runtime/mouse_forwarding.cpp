#include "mouse_forwarding.h"

#include <windowsx.h>

#include <cstdlib>

#include "key_events.h"

namespace ravelin::browser {
namespace {

constexpr int leftMask = 1;
constexpr int rightMask = 2;
constexpr int middleMask = 4;
constexpr int backMask = 8;
constexpr int forwardMask = 16;

// What one wheel notch scrolls, in page pixels.
constexpr double notchPixels = 100.0;

POINT pointOf(LPARAM lng) {
    return {GET_X_LPARAM(lng), GET_Y_LPARAM(lng)};
}

bool isBack(WPARAM wide) {
    return GET_XBUTTON_WPARAM(wide) == XBUTTON1;
}

}  // namespace

std::optional<LRESULT> MouseForwarding::handle(UINT message, WPARAM wide, LPARAM lng) {
    const POINT at = pointOf(lng);
    switch (message) {
        case WM_MOUSEMOVE:
            moved(at, wide);
            return 0;
        case WM_LBUTTONDOWN:
            pressed("left", leftMask, at, wide);
            return 0;
        case WM_RBUTTONDOWN:
            pressed("right", rightMask, at, wide);
            return 0;
        case WM_MBUTTONDOWN:
            pressed("middle", middleMask, at, wide);
            return 0;
        case WM_LBUTTONUP:
            released("left", leftMask, at, wide);
            return 0;
        case WM_RBUTTONUP:
            released("right", rightMask, at, wide);
            return 0;
        case WM_MBUTTONUP:
            released("middle", middleMask, at, wide);
            return 0;
        case WM_XBUTTONDOWN:
            pressed(isBack(wide) ? "back" : "forward", isBack(wide) ? backMask : forwardMask, at,
                    wide);
            return TRUE;
        case WM_XBUTTONUP:
            released(isBack(wide) ? "back" : "forward", isBack(wide) ? backMask : forwardMask, at,
                     wide);
            return TRUE;
        case WM_MOUSEWHEEL:
            wheel(wide, lng, false);
            return 0;
        case WM_MOUSEHWHEEL:
            wheel(wide, lng, true);
            return 0;
        case WM_MOUSELEAVE:
            left();
            return 0;
        case WM_CAPTURECHANGED:
            captureLost();
            return 0;
        default:
            return std::nullopt;
    }
}

Json MouseForwarding::event(const char* type, POINT at, WPARAM keys) const {
    return {{"type", type},
            {"x", scale_.toPage(at.x)},
            {"y", scale_.toPage(at.y)},
            {"modifiers", keyModifiers(keys)},
            {"buttons", buttons_},
            {"pointerType", "mouse"}};
}

void MouseForwarding::moved(POINT at, WPARAM keys) {
    if (!tracking_) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
        tracking_ = TrackMouseEvent(&track) != 0;
    }
    // The system repeats the last position when windows change below a resting mouse.
    if (at.x == last_.x && at.y == last_.y) return;
    last_ = at;
    sendMove(at, keys);
}

void MouseForwarding::sendMove(POINT at, WPARAM keys) {
    Json move = event("mouseMoved", at, keys);
    move["button"] = (buttons_ & leftMask) != 0     ? "left"
                     : (buttons_ & rightMask) != 0  ? "right"
                     : (buttons_ & middleMask) != 0 ? "middle"
                                                    : "none";
    input_.push(InputKind::move, "Input.dispatchMouseEvent", std::move(move));
}

void MouseForwarding::send(const char* type, const char* button, POINT at, WPARAM keys,
                           int clicks) {
    Json parameters = event(type, at, keys);
    parameters["button"] = button;
    parameters["clickCount"] = clicks;
    input_.push(InputKind::button, "Input.dispatchMouseEvent", std::move(parameters));
}

void MouseForwarding::countClick(int mask, POINT at) {
    const LONG now = GetMessageTime();
    const bool continued =
        mask == clickedButton_ &&
        static_cast<ULONG>(now - clickedWhen_) <= static_cast<ULONG>(GetDoubleClickTime()) &&
        std::abs(at.x - clickedAt_.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
        std::abs(at.y - clickedAt_.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
    clicks_ = continued ? clicks_ + 1 : 1;
    clickedButton_ = mask;
    clickedAt_ = at;
    clickedWhen_ = now;
}

void MouseForwarding::pressed(const char* button, int mask, POINT at, WPARAM keys) {
    if (GetFocus() != window_) SetFocus(window_);
    if (buttons_ == 0) SetCapture(window_);
    buttons_ |= mask;
    last_ = at;
    countClick(mask, at);
    send("mousePressed", button, at, keys, clicks_);
}

void MouseForwarding::released(const char* button, int mask, POINT at, WPARAM keys) {
    // A press that began elsewhere is not the page's.
    if ((buttons_ & mask) == 0) return;
    buttons_ &= ~mask;
    send("mouseReleased", button, at, keys, mask == clickedButton_ ? clicks_ : 1);
    if (buttons_ == 0 && GetCapture() == window_) ReleaseCapture();
}

void MouseForwarding::wheel(WPARAM wide, LPARAM lng, bool horizontal) {
    POINT at = pointOf(lng);
    ScreenToClient(window_, &at);
    const int turned = GET_WHEEL_DELTA_WPARAM(wide);
    const WPARAM keys = GET_KEYSTATE_WPARAM(wide);
    if (!horizontal && (keys & MK_CONTROL) != 0 && onZoomWheel &&
        onZoomWheel(turned > 0 ? 1 : -1)) {
        return;
    }
    const double pixels = turned * notchPixels / WHEEL_DELTA;
    // A vertical wheel with Shift held scrolls sideways.
    const bool sideways = horizontal || (keys & MK_SHIFT) != 0;
    Json parameters = event("mouseWheel", at, keys);
    parameters["deltaX"] = horizontal ? pixels : sideways ? -pixels : 0.0;
    parameters["deltaY"] = sideways ? 0.0 : -pixels;
    input_.push(InputKind::other, "Input.dispatchMouseEvent", std::move(parameters));
}

void MouseForwarding::left() {
    tracking_ = false;
    if (buttons_ != 0) return;
    last_ = {-1, -1};
    sendMove(last_, 0);
}

void MouseForwarding::captureLost() {
    if (buttons_ == 0) return;
    // Somebody else took the mouse in the middle of a press: the page hears of no release, and the
    // next move tells it that nothing is held.
    if ((buttons_ & leftMask) != 0) {
        input_.push(InputKind::other, "Input.cancelDragging", Json::object());
    }
    buttons_ = 0;
    sendMove(last_, 0);
}

}  // namespace ravelin::browser
