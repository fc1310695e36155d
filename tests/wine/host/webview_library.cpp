#include "webview_library.h"

namespace ravelin::browser_host {
namespace {

template <class Function>
bool find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
}

}  // namespace

bool loadWebviewLibrary(WebviewLibrary& library) {
    HMODULE module = LoadLibraryW(L"libwebview.dll");
    return module != nullptr && find(module, "webview_create", library.create) &&
           find(module, "webview_destroy", library.destroy) &&
           find(module, "webview_run", library.run) &&
           find(module, "webview_terminate", library.terminate) &&
           find(module, "webview_dispatch", library.dispatch) &&
           find(module, "webview_set_title", library.setTitle) &&
           find(module, "webview_set_size", library.setSize) &&
           find(module, "webview_set_html", library.setHtml) &&
           find(module, "webview_navigate", library.navigate) &&
           find(module, "webview_init", library.init) &&
           find(module, "webview_eval", library.eval) &&
           find(module, "webview_bind", library.bind) &&
           find(module, "webview_unbind", library.unbind) &&
           find(module, "webview_return", library.resolve) &&
           find(module, "webview_get_native_handle", library.nativeHandle);
}

}  // namespace ravelin::browser_host
