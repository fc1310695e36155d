#include "app/composition_win32.h"

namespace ravelin {
namespace {

constexpr DWORD extendedFrameBounds = 9;  // DWMWA_EXTENDED_FRAME_BOUNDS
constexpr DWORD cloak = 13;               // DWMWA_CLOAK

using GetAttribute = HRESULT WINAPI(HWND window, DWORD attribute, void* value, DWORD size);
using SetAttribute = HRESULT WINAPI(HWND window, DWORD attribute, const void* value, DWORD size);

// Null where there is no compositor. Never freed: it keeps threads of its own.
template <class Function>
Function* findFunction(const char* name) {
    static const HMODULE library =
        LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) return nullptr;
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

}  // namespace

Border invisibleBorder(HWND window) {
    auto* const getAttribute = findFunction<GetAttribute>("DwmGetWindowAttribute");
    RECT seen{};
    RECT whole{};
    if (getAttribute == nullptr ||
        FAILED(getAttribute(window, extendedFrameBounds, &seen, sizeof seen)) ||
        GetWindowRect(window, &whole) == 0)
        return {};
    return {seen.left - whole.left, seen.top - whole.top};
}

void setCloaked(HWND window, bool cloaked) {
    auto* const setAttribute = findFunction<SetAttribute>("DwmSetWindowAttribute");
    const BOOL value = cloaked ? TRUE : FALSE;
    if (setAttribute != nullptr) setAttribute(window, cloak, &value, sizeof value);
}

}  // namespace ravelin
