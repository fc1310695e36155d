// The C interface of the webview library as this program uses it, found in libwebview.dll at run
// time.
#pragma once

#include <windows.h>

namespace ravelin::browser_host {

using Webview = void*;

struct WebviewLibrary {
    Webview (*create)(int debug, void* window);
    int (*destroy)(Webview);
    int (*run)(Webview);
    int (*terminate)(Webview);
    int (*dispatch)(Webview, void (*function)(Webview, void*), void* argument);
    int (*setTitle)(Webview, const char* title);
    int (*setSize)(Webview, int width, int height, int hints);
    int (*setHtml)(Webview, const char* html);
    int (*navigate)(Webview, const char* address);
    int (*init)(Webview, const char* script);
    int (*eval)(Webview, const char* script);
    int (*bind)(Webview, const char* name,
                void (*function)(const char* id, const char* arguments, void* context),
                void* context);
    int (*unbind)(Webview, const char* name);
    int (*resolve)(Webview, const char* id, int status, const char* json);
    // Kind 0 the window, 1 the widget, 2 the browser's controller.
    void* (*nativeHandle)(Webview, int kind);
};

// False when the DLL or one of its functions is missing.
bool loadWebviewLibrary(WebviewLibrary& library);

}  // namespace ravelin::browser_host
