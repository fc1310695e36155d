// The system's composition library as the tests see it: Wine's knows no cloak. This one keeps what
// was asked for and writes it down:
//
//   cloak 1, cloak 0
#include <windows.h>

#include "window_log.h"

namespace {

// Attributes by their published numbers.
constexpr DWORD extendedFrameBounds = 9;
constexpr DWORD cloak = 13;
constexpr DWORD cloaked = 14;

// Also for those that look from outside.
constexpr wchar_t cloakedProperty[] = L"RavelinTestCloaked";

}  // namespace

extern "C" {

__declspec(dllexport) HRESULT WINAPI
    DwmSetWindowAttribute(HWND window, DWORD attribute, LPCVOID value, DWORD size) {
    if (IsWindow(window) == 0) return E_HANDLE;
    if (value == nullptr) return E_INVALIDARG;
    if (attribute == cloaked) return E_INVALIDARG;
    if (attribute != cloak) return S_OK;
    if (size < sizeof(BOOL)) return E_INVALIDARG;
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != GetCurrentProcessId()) return E_ACCESSDENIED;
    const bool on = *static_cast<const BOOL*>(value) != FALSE;
    if (on) {
        SetPropW(window, cloakedProperty, reinterpret_cast<HANDLE>(1));
    } else {
        RemovePropW(window, cloakedProperty);
    }
    ravelin::recorder::record(window, on ? "cloak 1" : "cloak 0");
    return S_OK;
}

__declspec(dllexport) HRESULT WINAPI
    DwmGetWindowAttribute(HWND window, DWORD attribute, PVOID value, DWORD size) {
    if (IsWindow(window) == 0) return E_HANDLE;
    if (value == nullptr) return E_INVALIDARG;
    if (attribute == cloaked && size >= sizeof(DWORD)) {
        *static_cast<DWORD*>(value) = GetPropW(window, cloakedProperty) != nullptr ? 1 : 0;
        return S_OK;
    }
    if (attribute == extendedFrameBounds && size >= sizeof(RECT))
        return GetWindowRect(window, static_cast<RECT*>(value)) != 0 ? S_OK : E_HANDLE;
    return E_INVALIDARG;
}

__declspec(dllexport) HRESULT WINAPI DwmIsCompositionEnabled(BOOL* enabled) {
    if (enabled == nullptr) return E_INVALIDARG;
    *enabled = TRUE;
    return S_OK;
}

__declspec(dllexport) HRESULT WINAPI DwmExtendFrameIntoClientArea(HWND window, const void*) {
    return IsWindow(window) != 0 ? S_OK : E_HANDLE;
}

__declspec(dllexport) HRESULT WINAPI DwmEnableBlurBehindWindow(HWND window, const void*) {
    return IsWindow(window) != 0 ? S_OK : E_HANDLE;
}

__declspec(dllexport) HRESULT WINAPI DwmFlush() {
    return S_OK;
}

__declspec(dllexport) BOOL WINAPI DwmDefWindowProc(HWND, UINT, WPARAM, LPARAM, LRESULT*) {
    return FALSE;
}

}  // extern "C"
