#include "tests/windows/harness/test_window.h"

#include <algorithm>

#include "tests/windows/harness/eventually.h"

namespace ravelin::test {

namespace {

constexpr wchar_t className[] = L"RavelinTestWindow";
constexpr UINT callMessage = WM_APP;

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    if (message == callMessage) {
        (*reinterpret_cast<const std::function<void()>*>(lParam))();
        return 0;
    }
    auto* self = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr) self->messages.add({message, wParam, lParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

void registerClass() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = windowProc;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    description.lpszClassName = className;
    RegisterClassExW(&description);  // once; the second time it exists
}

}  // namespace

TestWindow::TestWindow(const std::wstring& title, RECT place, DWORD style)
    : thread_(
          [&] {
              registerClass();
              window_ =
                  CreateWindowExW(0, className, title.c_str(), style | WS_VISIBLE, place.left,
                                  place.top, place.right - place.left, place.bottom - place.top,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), this);
              SetForegroundWindow(window_);
              SetFocus(window_);
          },
          [this] {
              if (IsWindow(window_) != 0) DestroyWindow(window_);
          }) {
    eventually([this] { return hasFocus(window_); });
    messages.clear();
}

TestWindow::~TestWindow() = default;

void TestWindow::call(const std::function<void()>& function) const {
    SendMessageW(window_, callMessage, 0, reinterpret_cast<LPARAM>(&function));
}

void TestWindow::destroy() const {
    call([this] { DestroyWindow(window_); });
}

bool TestWindow::received(UINT message) const {
    const auto seen = messages.all();
    return std::any_of(seen.begin(), seen.end(),
                       [=](const SeenMessage& one) { return one.message == message; });
}

bool hasFocus(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetForegroundWindow() == window &&
           GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != 0 &&
           info.hwndFocus == window;
}

}  // namespace ravelin::test
