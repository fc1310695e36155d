// The view object that hosts see: documents, scripts and messages of the page.
#pragma once

#include <memory>

#include "com_object.h"
#include "embedded_browser.h"
#include "handler_list.h"
#include "settings.h"
#include "view_interface.h"

namespace ravelin::browser {

class View final : public ComObject<ICoreWebView2, iidView> {
  public:
    explicit View(std::shared_ptr<EmbeddedBrowser> browser);

    HRESULT STDMETHODCALLTYPE get_Settings(ICoreWebView2Settings** settings) override;
    HRESULT STDMETHODCALLTYPE get_Source(LPWSTR* uri) override;
    HRESULT STDMETHODCALLTYPE Navigate(LPCWSTR uri) override;
    HRESULT STDMETHODCALLTYPE NavigateToString(LPCWSTR html) override;
    HRESULT STDMETHODCALLTYPE Reload() override;
    HRESULT STDMETHODCALLTYPE add_NavigationCompleted(NavigationCompletedHandler* handler,
                                                      EventRegistrationToken* token) override;
    HRESULT STDMETHODCALLTYPE remove_NavigationCompleted(EventRegistrationToken token) override;
    HRESULT STDMETHODCALLTYPE add_PermissionRequested(IUnknown* handler,
                                                      EventRegistrationToken* token) override;
    HRESULT STDMETHODCALLTYPE remove_PermissionRequested(EventRegistrationToken token) override;
    HRESULT STDMETHODCALLTYPE add_ProcessFailed(ProcessFailedHandler* handler,
                                                EventRegistrationToken* token) override;
    HRESULT STDMETHODCALLTYPE remove_ProcessFailed(EventRegistrationToken token) override;
    HRESULT STDMETHODCALLTYPE
    AddScriptToExecuteOnDocumentCreated(LPCWSTR script, ScriptAddedHandler* handler) override;
    HRESULT STDMETHODCALLTYPE RemoveScriptToExecuteOnDocumentCreated(LPCWSTR id) override;
    HRESULT STDMETHODCALLTYPE ExecuteScript(LPCWSTR script,
                                            ScriptExecutedHandler* handler) override;
    HRESULT STDMETHODCALLTYPE add_WebMessageReceived(WebMessageReceivedHandler* handler,
                                                     EventRegistrationToken* token) override;
    HRESULT STDMETHODCALLTYPE remove_WebMessageReceived(EventRegistrationToken token) override;

  private:
    ~View() override;
    void deliverMessage(const std::string& json);
    void deliverNavigation(bool success);
    void deliverFailure(FailedProcess process);

    std::shared_ptr<EmbeddedBrowser> browser_;
    ComPtr<Settings> settings_;
    HandlerList<WebMessageReceivedHandler> messageHandlers_;
    HandlerList<NavigationCompletedHandler> navigationHandlers_;
    HandlerList<ProcessFailedHandler> failureHandlers_;
    // Kept for the host's sake: a page in this browser is refused what it would have to ask for.
    HandlerList<IUnknown> permissionHandlers_;
    UINT64 navigations_ = 0;
};

}  // namespace ravelin::browser
