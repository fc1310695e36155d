#include "app/window_subclass_win32.h"

#include <memory>
#include <utility>

namespace ravelin {
namespace {

struct Subclass {
    WNDPROC previous = nullptr;
    MessageHandler handler;
};

constexpr const wchar_t* subclassProperty = L"Ravelin.Subclass";

Subclass* subclassOf(HWND window) {
    return static_cast<Subclass*>(GetPropW(window, subclassProperty));
}

WNDPROC exchangeProcedure(HWND window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

LRESULT CALLBACK subclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const Subclass* subclass = subclassOf(window);
    if (subclass == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC previous = subclass->previous;
    try {
        if (subclass->handler({message, wParam, lParam})) return 0;
    } catch (...) {
        // What cannot be handled is lost; the window goes on.
    }
    if (message == WM_NCDESTROY) unsubclassWindow(window);
    return CallWindowProcW(previous, window, message, wParam, lParam);
}

}  // namespace

bool subclassWindow(HWND window, MessageHandler handler) {
    if (window == nullptr || subclassOf(window) != nullptr) return false;
    auto subclass = std::make_unique<Subclass>();
    subclass->handler = std::move(handler);
    if (SetPropW(window, subclassProperty, subclass.get()) == 0) return false;
    // Known before the first message comes, which may be at once.
    subclass->previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (exchangeProcedure(window, subclassProc) == nullptr) {
        RemovePropW(window, subclassProperty);
        return false;
    }
    static_cast<void>(subclass.release());  // the window owns it now
    return true;
}

void unsubclassWindow(HWND window) {
    const std::unique_ptr<Subclass> subclass(subclassOf(window));
    if (!subclass) return;
    exchangeProcedure(window, subclass->previous);
    RemovePropW(window, subclassProperty);
}

}  // namespace ravelin
