#include "view.h"

#include "../recorder/window_log.h"
#include "event_arguments.h"

namespace ravelin::browser {
namespace {

// Puts the page's call of its program's method, as the webview library packs it, into the record of
// the window.
void recordCall(HWND parent, const std::string& json) {
    if (!recorder::isRecording()) return;
    Json message = Json::parse(json, nullptr, false);
    if (message.is_string()) message = Json::parse(message.get<std::string>(), nullptr, false);
    if (!message.is_object()) return;
    recorder::record(GetAncestor(parent, GA_ROOT), "call " + message.value("method", ""));
}

}  // namespace

HRESULT unsupportedCall(const char* name) {
    logLine(std::string("not supported: ") + name);
    return E_NOTIMPL;
}

View::View(std::shared_ptr<EmbeddedBrowser> browser)
    : browser_(std::move(browser)), settings_(makeCom<Settings>(browser_)) {
    browser_->page().onMessage = [this](const std::string& json) { deliverMessage(json); };
    browser_->page().onNavigated = [this](bool success) { deliverNavigation(success); };
    browser_->onProcessFailed = [this](FailedProcess process) { deliverFailure(process); };
}

View::~View() {
    browser_->page().onMessage = {};
    browser_->page().onNavigated = {};
    browser_->onProcessFailed = {};
}

HRESULT STDMETHODCALLTYPE View::get_Settings(ICoreWebView2Settings** settings) {
    if (settings == nullptr) return E_POINTER;
    return settings_.CopyTo(iidSettings, reinterpret_cast<void**>(settings));
}

HRESULT STDMETHODCALLTYPE View::get_Source(LPWSTR* uri) {
    if (uri == nullptr) return E_POINTER;
    *uri = comText(browser_->page().address());
    return *uri == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT STDMETHODCALLTYPE View::Navigate(LPCWSTR uri) {
    if (uri == nullptr) return E_INVALIDARG;
    browser_->page().navigate(toUtf8(uri));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::NavigateToString(LPCWSTR html) {
    constexpr std::size_t largestPage = std::size_t{2} << 20;
    if (html == nullptr) return E_INVALIDARG;
    const std::string text = toUtf8(html);
    if (text.size() > largestPage) {
        logLine("a page of " + std::to_string(text.size()) + " bytes is beyond 2 MiB");
        return E_INVALIDARG;
    }
    browser_->page().showText(text);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::Reload() {
    browser_->page().reload();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::add_NavigationCompleted(NavigationCompletedHandler* handler,
                                                        EventRegistrationToken* token) {
    return navigationHandlers_.add(handler, token);
}

HRESULT STDMETHODCALLTYPE View::remove_NavigationCompleted(EventRegistrationToken token) {
    return navigationHandlers_.remove(token);
}

HRESULT STDMETHODCALLTYPE View::add_PermissionRequested(IUnknown* handler,
                                                        EventRegistrationToken* token) {
    return permissionHandlers_.add(handler, token);
}

HRESULT STDMETHODCALLTYPE View::remove_PermissionRequested(EventRegistrationToken token) {
    return permissionHandlers_.remove(token);
}

HRESULT STDMETHODCALLTYPE View::add_ProcessFailed(ProcessFailedHandler* handler,
                                                  EventRegistrationToken* token) {
    return failureHandlers_.add(handler, token);
}

HRESULT STDMETHODCALLTYPE View::remove_ProcessFailed(EventRegistrationToken token) {
    return failureHandlers_.remove(token);
}

HRESULT STDMETHODCALLTYPE View::AddScriptToExecuteOnDocumentCreated(LPCWSTR script,
                                                                    ScriptAddedHandler* handler) {
    if (script == nullptr) return E_INVALIDARG;
    browser_->page().addScript(toUtf8(script),
                               [kept = ComPtr<ScriptAddedHandler>(handler)](const std::string& id) {
                                   if (kept) kept->Invoke(S_OK, toWide(id).c_str());
                               });
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::RemoveScriptToExecuteOnDocumentCreated(LPCWSTR id) {
    if (id == nullptr) return E_INVALIDARG;
    browser_->page().removeScript(toUtf8(id));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::ExecuteScript(LPCWSTR script, ScriptExecutedHandler* handler) {
    if (script == nullptr) return E_INVALIDARG;
    browser_->page().execute(
        toUtf8(script), [kept = ComPtr<ScriptExecutedHandler>(handler)](const std::string& value) {
            if (kept) kept->Invoke(S_OK, toWide(value).c_str());
        });
    return S_OK;
}

HRESULT STDMETHODCALLTYPE View::add_WebMessageReceived(WebMessageReceivedHandler* handler,
                                                       EventRegistrationToken* token) {
    return messageHandlers_.add(handler, token);
}

HRESULT STDMETHODCALLTYPE View::remove_WebMessageReceived(EventRegistrationToken token) {
    return messageHandlers_.remove(token);
}

void View::deliverMessage(const std::string& json) {
    if (!browser_->settings().isWebMessageEnabled) return;
    recordCall(browser_->parent(), json);
    const ComPtr<View> alive(this);
    const auto arguments = makeCom<WebMessageArguments>(browser_->page().address(), json);
    messageHandlers_.invoke(
        static_cast<ICoreWebView2*>(this),
        static_cast<ICoreWebView2WebMessageReceivedEventArgs*>(arguments.Get()));
}

void View::deliverFailure(FailedProcess process) {
    const ComPtr<View> alive(this);
    const auto arguments = makeCom<ProcessFailedArguments>(process);
    failureHandlers_.invoke(static_cast<ICoreWebView2*>(this),
                            static_cast<ICoreWebView2ProcessFailedEventArgs*>(arguments.Get()));
}

void View::deliverNavigation(bool success) {
    const ComPtr<View> alive(this);
    const auto arguments = makeCom<NavigationArguments>(success, ++navigations_);
    navigationHandlers_.invoke(
        static_cast<ICoreWebView2*>(this),
        static_cast<ICoreWebView2NavigationCompletedEventArgs*>(arguments.Get()));
}

}  // namespace ravelin::browser
