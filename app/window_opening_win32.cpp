#include "app/window_opening_win32.h"

#include "app/composition_win32.h"
#include "app/window_subclass_win32.h"

namespace ravelin {
namespace {

constexpr UINT longestPaintingMs = 5000;

// What the system's callbacks find; they carry no argument of ours.
WindowOpening* openingNow = nullptr;
HWND refusedWindow = nullptr;

LRESULT CALLBACK refuseActivation(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code == HCBT_ACTIVATE && reinterpret_cast<HWND>(wParam) == refusedWindow) return 1;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK revealNow(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (openingNow != nullptr) openingNow->reveal();
}

}  // namespace

WindowOpening::WindowOpening(HWND window, Activation activation) : window_(window) {
    if (window_ == nullptr) return;
    openingNow = this;
    setCloaked(window_, true);
    cloaked_ = true;
    if (activation == Activation::allowed) return;
    refusedWindow = window_;
    // Showing takes the foreground before it asks the hook; the hook refuses the focus.
    subclassWindow(window_, [](const WindowMessage& message) {
        if (message.id == WM_WINDOWPOSCHANGING)
            reinterpret_cast<WINDOWPOS*>(message.lParam)->flags |= SWP_NOACTIVATE;
        return false;
    });
    hook_.reset(SetWindowsHookExW(WH_CBT, refuseActivation, nullptr, GetCurrentThreadId()));
}

WindowOpening::~WindowOpening() {
    allowActivation();
    reveal();
    if (openingNow == this) openingNow = nullptr;
}

void WindowOpening::allowActivation() {
    if (refusedWindow == nullptr || refusedWindow != window_) return;
    refusedWindow = nullptr;
    unsubclassWindow(window_);
    hook_.reset();
}

void WindowOpening::reveal() {
    timer_.reset();
    if (!cloaked_) return;
    cloaked_ = false;
    setCloaked(window_, false);
}

void WindowOpening::revealSoon() {
    if (cloaked_ && !timer_) timer_.reset(SetTimer(nullptr, 0, longestPaintingMs, revealNow));
}

}  // namespace ravelin
