// Writes down every change of the top-level windows of the processes that record, as it happens on
// the thread of the window. `window_tool hook` sets it for all programs of the desktop:
//
//   create CLASS, destroy      title TEXT
//   place LEFT TOP RIGHT BOTTOM (in pixels of the screen)
//   style HEX, exstyle HEX     show 1, show 0
#include <windows.h>

#include <cstdio>
#include <map>
#include <string>

#include "window_log.h"

namespace ravelin::recorder {
namespace {

struct Known {
    RECT place{};
    LONG_PTR style = 0;
    LONG_PTR extendedStyle = 0;
    bool shown = false;
    std::wstring title;
};

// Of this process. Never destroyed: windows go until the very end of the process.
struct Windows {
    SRWLOCK lock = SRWLOCK_INIT;
    std::map<HWND, Known> known;
};
Windows& windows() {
    static Windows& instance = *new Windows;
    return instance;
}

std::string utf8(const wchar_t* text) {
    char bytes[1024];
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
    return length > 0 ? bytes : "";
}

std::string hexadecimal(const char* name, LONG_PTR value) {
    char text[64];
    std::snprintf(text, sizeof text, "%s %08lx", name, static_cast<unsigned long>(value));
    return text;
}

std::string placeText(const RECT& place) {
    char text[96];
    std::snprintf(text, sizeof text, "place %ld %ld %ld %ld", place.left, place.top, place.right,
                  place.bottom);
    return text;
}

bool isTopLevel(HWND window) {
    return GetAncestor(window, GA_PARENT) == GetDesktopWindow();
}

Known lookAt(HWND window) {
    Known now;
    GetWindowRect(window, &now.place);
    now.style = GetWindowLongPtrW(window, GWL_STYLE) & ~static_cast<LONG_PTR>(WS_VISIBLE);
    now.extendedStyle = GetWindowLongPtrW(window, GWL_EXSTYLE);
    now.shown = IsWindowVisible(window) != 0;
    wchar_t title[256] = L"";
    // Without a message, so that looking changes nothing.
    InternalGetWindowText(window, title, 256);
    now.title = title;
    return now;
}

void writeDifference(HWND window, const Known& before, const Known& now) {
    if (before.title != now.title) record(window, "title " + utf8(now.title.c_str()));
    // What is hidden goes before it changes, what is shown comes as it has become.
    if (before.shown && !now.shown) record(window, "show 0");
    if (before.style != now.style) record(window, hexadecimal("style", now.style));
    if (before.extendedStyle != now.extendedStyle)
        record(window, hexadecimal("exstyle", now.extendedStyle));
    if (EqualRect(&before.place, &now.place) == 0) record(window, placeText(now.place));
    if (!before.shown && now.shown) record(window, "show 1");
}

void see(HWND window, UINT message) {
    if (!isRecording() || !isTopLevel(window)) return;
    Windows& all = windows();
    AcquireSRWLockExclusive(&all.lock);
    auto found = all.known.find(window);
    if (found == all.known.end()) {
        wchar_t type[128] = L"";
        GetClassNameW(window, type, 128);
        record(window, "create " + utf8(type));
        found = all.known.emplace(window, Known{}).first;
    }
    const Known now = lookAt(window);
    writeDifference(window, found->second, now);
    found->second = now;
    if (message == WM_NCDESTROY) {
        record(window, "destroy");
        all.known.erase(found);
    }
    ReleaseSRWLockExclusive(&all.lock);
}

}  // namespace
}  // namespace ravelin::recorder

extern "C" __declspec(dllexport) LRESULT CALLBACK seeMessage(int code, WPARAM wide, LPARAM lng) {
    if (code == HC_ACTION) {
        const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lng);
        ravelin::recorder::see(message.hwnd, message.message);
    }
    return CallNextHookEx(nullptr, code, wide, lng);
}

// After a window's own answer, which may have changed it without another message.
extern "C" __declspec(dllexport) LRESULT CALLBACK seeAnswer(int code, WPARAM wide, LPARAM lng) {
    if (code == HC_ACTION) {
        const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(lng);
        if (message.message != WM_NCDESTROY) ravelin::recorder::see(message.hwnd, message.message);
    }
    return CallNextHookEx(nullptr, code, wide, lng);
}
