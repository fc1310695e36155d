#include "screen_window.h"

#include <utility>

#include "module.h"

namespace ravelin::browser {
namespace {

constexpr wchar_t className[] = L"RavelinBrowserScreen";

}  // namespace

ScreenWindow::ScreenWindow(HWND parent, MessageHandler handler) : handler_(std::move(handler)) {
    WNDCLASSEXW type{};
    type.cbSize = sizeof type;
    type.lpfnWndProc = procedure;
    type.hInstance = thisModule();
    type.lpszClassName = className;
    RegisterClassExW(&type);
    window_ = CreateWindowExW(0, className, nullptr, WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent,
                              nullptr, thisModule(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

ScreenWindow::~ScreenWindow() {
    if (window_ == nullptr) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void ScreenWindow::place(const RECT& bounds) {
    SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

POINT ScreenWindow::corner() const {
    POINT corner{};
    ClientToScreen(window_, &corner);
    return corner;
}

void ScreenWindow::show(bool visible) {
    ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void ScreenWindow::present(Frame frame) {
    frame_ = std::move(frame);
    InvalidateRect(window_, nullptr, FALSE);
    UpdateWindow(window_);
}

void ScreenWindow::paint() const {
    PAINTSTRUCT painting{};
    HDC context = BeginPaint(window_, &painting);
    if (context == nullptr) return;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = frame_.width;
    info.bmiHeader.biHeight = -frame_.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    if (!frame_.pixels.empty()) {
        SetDIBitsToDevice(
            context, 0, 0, static_cast<DWORD>(frame_.width), static_cast<DWORD>(frame_.height), 0,
            0, 0, static_cast<UINT>(frame_.height), frame_.pixels.data(), &info, DIB_RGB_COLORS);
    }
    RECT client{};
    GetClientRect(window_, &client);
    const auto white = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    const RECT right{frame_.width, 0, client.right, client.bottom};
    const RECT below{0, frame_.height, frame_.width, client.bottom};
    if (right.left < right.right) FillRect(context, &right, white);
    if (below.top < below.bottom) FillRect(context, &below, white);
    EndPaint(window_, &painting);
}

LRESULT CALLBACK ScreenWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM lng) {
    auto* screen = reinterpret_cast<ScreenWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (screen == nullptr) return DefWindowProcW(window, message, wide, lng);
    switch (message) {
        case WM_PAINT:
            screen->paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_NCDESTROY:
            // The parent took its children along.
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            screen->window_ = nullptr;
            break;
        default:
            break;
    }
    if (const auto answer = screen->handler_(message, wide, lng)) return *answer;
    return DefWindowProcW(window, message, wide, lng);
}

}  // namespace ravelin::browser
