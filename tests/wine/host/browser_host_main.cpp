// A small host of embedded views, to try the runtime with:
//
//   browser_host TITLE WIDTH HEIGHT PAGE-FILE [OPTION...]
//
// It shows the page and offers it a few methods. Everything that happens is printed, one line each.
//   --application   switches context menus, zoom and browser keys off, as an application does
//   --two-views     opens a second window, "TITLE 2", with the same page
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "../runtime/view_interface.h"
#include "application_settings.h"
#include "webview_library.h"

namespace {

using ravelin::browser::ICoreWebView2Controller;
using ravelin::browser_host::Webview;
using ravelin::browser_host::WebviewLibrary;

WebviewLibrary library;

void say(const std::string& what) {
    std::printf("%s\n", what.c_str());
    std::fflush(stdout);
}

// echo(...) answers with its own arguments.
void echo(const char* id, const char* arguments, void* view) {
    library.resolve(view, id, 0, arguments);
}

// report(...) prints its arguments.
void report(const char* id, const char* arguments, void* view) {
    say(std::string("report ") + arguments);
    library.resolve(view, id, 0, "");
}

// fail(...) rejects the page's promise.
void fail(const char* id, const char* arguments, void* view) {
    library.resolve(view, id, 1, arguments);
}

// where() answers with the page's place on the screen.
void where(const char* id, const char*, void* view) {
    constexpr int widgetKind = 1;
    auto* widget = static_cast<HWND>(library.nativeHandle(view, widgetKind));
    RECT place{};
    GetClientRect(widget, &place);
    MapWindowPoints(widget, nullptr, reinterpret_cast<POINT*>(&place), 2);
    library.resolve(
        view, id, 0,
        ("{\"x\":" + std::to_string(place.left) + ",\"y\":" + std::to_string(place.top) +
         ",\"width\":" + std::to_string(place.right - place.left) +
         ",\"height\":" + std::to_string(place.bottom - place.top) + "}")
            .c_str());
}

// pointer() answers with the name of the mouse pointer's shape.
void pointer(const char* id, const char*, void* view) {
    CURSORINFO info{};
    info.cbSize = sizeof info;
    GetCursorInfo(&info);
    const char* const name = info.hCursor == LoadCursorW(nullptr, IDC_HAND)    ? "\"hand\""
                             : info.hCursor == LoadCursorW(nullptr, IDC_IBEAM) ? "\"text\""
                             : info.hCursor == LoadCursorW(nullptr, IDC_ARROW) ? "\"arrow\""
                                                                               : "\"other\"";
    library.resolve(view, id, 0, name);
}

// callBack() runs a script in the page later, from the message loop.
void callBack(const char* id, const char*, void* view) {
    library.resolve(view, id, 0, "");
    library.dispatch(
        view, [](Webview later, void*) { library.eval(later, "window.onCallBack()"); }, nullptr);
}

// bindLate() binds the method late().
void bindLate(const char* id, const char*, void* view) {
    library.bind(view, "late", echo, view);
    library.resolve(view, id, 0, "");
}

// unbindLate() takes it away again.
void unbindLate(const char* id, const char*, void* view) {
    library.unbind(view, "late");
    library.resolve(view, id, 0, "");
}

// grabMouse() takes the mouse from the page while a button is held, as a window drag does at first.
void grabMouse(const char* id, const char*, void* view) {
    SetCapture(static_cast<HWND>(library.nativeHandle(view, 0)));
    ReleaseCapture();
    library.resolve(view, id, 0, "");
}

constexpr int controllerKind = 2;

ICoreWebView2Controller* controllerOf(void* view) {
    return static_cast<ICoreWebView2Controller*>(library.nativeHandle(view, controllerKind));
}

// setVisible(on) shows or hides the view, whatever its window does.
void setVisible(const char* id, const char* arguments, void* view) {
    controllerOf(view)->put_IsVisible(std::string_view(arguments) == "[true]" ? TRUE : FALSE);
    library.resolve(view, id, 0, "");
}

// tellMove() tells the view that its window has moved.
void tellMove(const char* id, const char*, void* view) {
    controllerOf(view)->NotifyParentWindowPositionChanged();
    library.resolve(view, id, 0, "");
}

// enlarge() makes the window much larger, in pixels of the screen.
void enlarge(const char* id, const char*, void* view) {
    SetWindowPos(static_cast<HWND>(library.nativeHandle(view, 0)), nullptr, 30, 40, 940, 780,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    library.resolve(view, id, 0, "");
}

// focusWindow() gives the keyboard to the window around the view, focusView() to the view.
void focusWindow(const char* id, const char*, void* view) {
    SetFocus(static_cast<HWND>(library.nativeHandle(view, 0)));
    library.resolve(view, id, 0, "");
}

void focusView(const char* id, const char*, void* view) {
    controllerOf(view)->MoveFocus(0);
    library.resolve(view, id, 0, "");
}

// flash() moves the window away, takes its frame and hides it, and undoes it all at once.
void flash(const char* id, const char*, void* view) {
    auto* window = static_cast<HWND>(library.nativeHandle(view, 0));
    constexpr UINT keep = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    RECT place{};
    GetWindowRect(window, &place);
    SetWindowPos(window, nullptr, 700, 600, 0, 0, keep);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    SetWindowLongPtrW(window, GWL_STYLE,
                      (style & ~static_cast<LONG_PTR>(WS_CAPTION)) |
                          static_cast<LONG_PTR>(static_cast<LONG>(WS_POPUP)));
    ShowWindow(window, SW_HIDE);
    SetWindowLongPtrW(window, GWL_STYLE, style & ~static_cast<LONG_PTR>(WS_VISIBLE));
    ShowWindow(window, SW_SHOWNA);
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0, keep);
    library.resolve(view, id, 0, "");
}

// cloak(on) cloaks the window or lifts its cloak; answers with what the system says of it then.
void cloak(const char* id, const char* arguments, void* view) {
    using Set = HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD);
    using Get = HRESULT(WINAPI*)(HWND, DWORD, PVOID, DWORD);
    const HMODULE composition =
        LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto find = [composition](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(composition, name));
    };
    auto* window = static_cast<HWND>(library.nativeHandle(view, 0));
    const BOOL on = std::string_view(arguments) == "[true]" ? TRUE : FALSE;
    DWORD cloaked = 99;
    reinterpret_cast<Set>(find("DwmSetWindowAttribute"))(window, 13, &on, sizeof on);
    reinterpret_cast<Get>(find("DwmGetWindowAttribute"))(window, 14, &cloaked, sizeof cloaked);
    library.resolve(view, id, 0, std::to_string(cloaked).c_str());
}

void closeHost(const char* id, const char*, void* view) {
    library.resolve(view, id, 0, "");
    library.terminate(view);
}

std::string readFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Webview openView(const std::string& title, int width, int height) {
    const ULONGLONG began = GetTickCount64();
    Webview view = library.create(0, nullptr);
    if (view == nullptr) return nullptr;
    say("created " + std::to_string(GetTickCount64() - began));
    library.setTitle(view, title.c_str());
    library.setSize(view, width, height, 0);
    library.bind(view, "echo", echo, view);
    library.bind(view, "report", report, view);
    library.bind(view, "fail", fail, view);
    library.bind(view, "where", where, view);
    library.bind(view, "pointer", pointer, view);
    library.bind(view, "callBack", callBack, view);
    library.bind(view, "bindLate", bindLate, view);
    library.bind(view, "unbindLate", unbindLate, view);
    library.bind(view, "grabMouse", grabMouse, view);
    library.bind(view, "setVisible", setVisible, view);
    library.bind(view, "tellMove", tellMove, view);
    library.bind(view, "enlarge", enlarge, view);
    library.bind(view, "focusWindow", focusWindow, view);
    library.bind(view, "focusView", focusView, view);
    library.bind(view, "flash", flash, view);
    library.bind(view, "cloak", cloak, view);
    library.bind(view, "closeHost", closeHost, view);
    library.init(view, "window.initRan = document.readyState");
    return view;
}

}  // namespace

int main(int count, char** values) {
    if (count < 5) {
        say("usage: browser_host TITLE WIDTH HEIGHT PAGE-FILE [--application] [--two-views]");
        return 2;
    }
    bool application = false;
    bool twoViews = false;
    for (int i = 5; i < count; ++i) {
        const std::string_view option = values[i];
        application = application || option == "--application";
        twoViews = twoViews || option == "--two-views";
    }
    if (!ravelin::browser_host::loadWebviewLibrary(library)) {
        say("no libwebview.dll");
        return 3;
    }
    const std::string title = values[1];
    const int width = std::atoi(values[2]);
    const int height = std::atoi(values[3]);
    Webview view = openView(title, width, height);
    if (view == nullptr) {
        say("no view");
        return 4;
    }
    if (application) {
        const bool done = ravelin::browser_host::useApplicationSettings(
            library.nativeHandle(view, controllerKind));
        say(done ? "settings done" : "settings failed");
    }
    const std::string page = readFile(values[4]);
    library.setHtml(view, page.c_str());
    Webview second = twoViews ? openView(title + " 2", width, height) : nullptr;
    if (second != nullptr) library.setHtml(second, page.c_str());
    library.run(view);
    say("ending");
    if (second != nullptr) library.destroy(second);
    library.destroy(view);
    say("ended");
    return 0;
}
