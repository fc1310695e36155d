#include "app/environment_win32.h"

#include "themes/theme_key.h"

namespace ravelin {
namespace {

constexpr double unscaledDpi = 96;

// From Windows 10 1607 on; earlier ones have one scale for all windows.
UINT dpiOf(HWND window) {
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    static auto* const dpiForWindow =
        reinterpret_cast<UINT(WINAPI*)(HWND)>(reinterpret_cast<void (*)()>(
            GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    return dpiForWindow != nullptr ? dpiForWindow(window) : 0;
}

UINT screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return static_cast<UINT>(dpi);
}

}  // namespace

double windowScale(HWND window) {
    const UINT dpi = dpiOf(window);
    return (dpi != 0 ? dpi : screenDpi()) / unscaledDpi;
}

Environment environmentOf(HWND window) {
    return {.scale = windowScale(window),
            .buttonsSwapped = GetSystemMetrics(SM_SWAPBUTTON) != 0,
            .themeKey = currentThemeKey};
}

}  // namespace ravelin
