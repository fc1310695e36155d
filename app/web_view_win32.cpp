#include <windows.h>

#include <atomic>
#include <exception>
#include <mutex>
#include <utility>

#include "app/view_wait_timer_win32.h"
#include "app/web_view.h"

namespace ravelin {
namespace {

using ViewHandle = void*;

enum class NativeHandle : int { window = 0, widget = 1, browserController = 2 };
constexpr int noSizeHint = 0;

template <class Function>
bool findExport(HMODULE module, const char* name, Function*& function) {
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    function =
        reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
    return function != nullptr;
}

// The window in which the library runs what was dispatched on this thread.
HWND queueWindow() {
    HWND window = nullptr;
    do {
        window = FindWindowExW(HWND_MESSAGE, window, L"webview_message", nullptr);
    } while (window != nullptr &&
             GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId());
    return window;
}

// Runs what is left in the library's queue. As the view goes, the library would run it without the
// browser's view that the calls are meant for.
void emptyQueue() {
    const HWND window = queueWindow();
    MSG message{};
    while (window != nullptr && PeekMessageW(&message, window, 0, 0, PM_REMOVE) != 0 &&
           message.message != WM_QUIT)
        DispatchMessageW(&message);
}

}  // namespace

// The library's functions. Loaded once and never freed: the library keeps threads and window
// procedures of its own until the process ends.
struct WebView::Library {
    ViewHandle (*create)(int debug, void* window) = nullptr;
    int (*destroy)(ViewHandle) = nullptr;
    int (*run)(ViewHandle) = nullptr;
    int (*terminate)(ViewHandle) = nullptr;
    int (*dispatch)(ViewHandle, void (*action)(ViewHandle, void*), void* argument) = nullptr;
    void* (*nativeHandle)(ViewHandle, int kind) = nullptr;
    int (*setTitle)(ViewHandle, const char*) = nullptr;
    int (*setSize)(ViewHandle, int width, int height, int hint) = nullptr;
    int (*setHtml)(ViewHandle, const char*) = nullptr;
    int (*eval)(ViewHandle, const char*) = nullptr;
    int (*bind)(ViewHandle, const char* name, void (*)(const char* id, const char* args, void*),
                void* argument) = nullptr;
    int (*settle)(ViewHandle, const char* id, int status, const char* json) = nullptr;

    // Null when the library or one of its functions is missing.
    static const Library* get() {
        static const Library library;
        return library.complete_ ? &library : nullptr;
    }

  private:
    Library() {
        const HMODULE module =
            LoadLibraryExW(L"libwebview.dll", nullptr,
                           LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
        complete_ = module != nullptr && findExport(module, "webview_create", create) &&
                    findExport(module, "webview_destroy", destroy) &&
                    findExport(module, "webview_run", run) &&
                    findExport(module, "webview_terminate", terminate) &&
                    findExport(module, "webview_dispatch", dispatch) &&
                    findExport(module, "webview_get_native_handle", nativeHandle) &&
                    findExport(module, "webview_set_title", setTitle) &&
                    findExport(module, "webview_set_size", setSize) &&
                    findExport(module, "webview_set_html", setHtml) &&
                    findExport(module, "webview_eval", eval) &&
                    findExport(module, "webview_bind", bind) &&
                    findExport(module, "webview_return", settle);
    }

    bool complete_ = false;
};

// Whether the view may still be asked for something.
struct WebView::Life {
    // Held while the library is handed something for its queue, so that nothing comes into the
    // queue after the last look at it.
    std::mutex mutex;
    std::atomic<bool> over{false};
};

struct WebView::Dispatched {
    std::function<void()> action;
    std::shared_ptr<Life> life;
};

struct WebView::Binding {
    Handler handler;
    std::shared_ptr<Life> life;

    static void call(const char* id, const char* args, void* self) {
        const auto* binding = static_cast<Binding*>(self);
        if (binding->life->over) return;
        try {
            binding->handler(id, args);
        } catch (...) {
            // Handlers do not throw; if one does, the call stays unsettled rather than letting the
            // error unwind through the library.
            return;
        }
    }
};

WebView::Created WebView::create() {
    const Library* library = Library::get();
    if (library == nullptr) return {nullptr, {ViewFailureReason::libraryMissing}};
    ViewWaitTimer wait;
    const ViewHandle view = library->create(0, nullptr);
    if (view == nullptr) return {nullptr, wait.failure()};
    return {std::unique_ptr<WebView>(new WebView(view)), {}};
}

WebView::WebView(void* view) : view_(view), life_(std::make_shared<Life>()) {}

WebView::~WebView() {
    Library::get()->destroy(view_);
}

void WebView::setTitle(const std::string& title) {
    Library::get()->setTitle(view_, title.c_str());
}

void WebView::setSize(int width, int height) {
    Library::get()->setSize(view_, width, height, noSizeHint);
}

void WebView::setHtml(const std::string& html) {
    Library::get()->setHtml(view_, html.c_str());
}

void WebView::eval(const std::string& script) {
    Library::get()->eval(view_, script.c_str());
}

void WebView::bind(const std::string& name, Handler handler) {
    bindings_.push_back(std::make_unique<Binding>(Binding{std::move(handler), life_}));
    Library::get()->bind(view_, name.c_str(), &Binding::call, bindings_.back().get());
}

void WebView::settle(const std::string& callId, bool rejected, const std::string& json) {
    const std::lock_guard lock(life_->mutex);
    if (!life_->over) Library::get()->settle(view_, callId.c_str(), rejected ? 1 : 0, json.c_str());
}

void WebView::dispatch(std::function<void()> action) {
    auto owned = std::make_unique<Dispatched>(Dispatched{std::move(action), life_});
    const auto runOwned = [](ViewHandle, void* argument) {
        const std::unique_ptr<Dispatched> run(static_cast<Dispatched*>(argument));
        if (run->life->over) return;
        try {
            run->action();
        } catch (...) {
            return;  // nothing unwinds through the library
        }
    };
    const std::lock_guard lock(life_->mutex);
    if (life_->over) return;
    if (Library::get()->dispatch(view_, runOwned, owned.get()) == 0) (void)owned.release();
}

ViewFailure WebView::run() {
    if (failure_ == ViewFailure{}) Library::get()->run(view_);
    {
        const std::lock_guard lock(life_->mutex);
        life_->over = true;
    }
    emptyQueue();
    return failure_;
}

void WebView::terminate() {
    Library::get()->terminate(view_);
}

void WebView::breakOff(const ViewFailure& failure) {
    failure_ = failure;
    terminate();
}

void* WebView::window() const {
    return Library::get()->nativeHandle(view_, static_cast<int>(NativeHandle::window));
}

void* WebView::browserController() const {
    return Library::get()->nativeHandle(view_, static_cast<int>(NativeHandle::browserController));
}

}  // namespace ravelin
