// The published interface of the view itself, slot by slot.
#pragma once

#include "com_interfaces.h"
#include "settings_interface.h"

namespace ravelin::browser {

struct ICoreWebView2 : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Settings(ICoreWebView2Settings** settings) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Source(LPWSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE Navigate(LPCWSTR uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE NavigateToString(LPCWSTR html) = 0;
    BROWSER_UNSUPPORTED(add_NavigationStarting)
    BROWSER_UNSUPPORTED(remove_NavigationStarting)
    BROWSER_UNSUPPORTED(add_ContentLoading)
    BROWSER_UNSUPPORTED(remove_ContentLoading)
    BROWSER_UNSUPPORTED(add_SourceChanged)
    BROWSER_UNSUPPORTED(remove_SourceChanged)
    BROWSER_UNSUPPORTED(add_HistoryChanged)
    BROWSER_UNSUPPORTED(remove_HistoryChanged)
    virtual HRESULT STDMETHODCALLTYPE add_NavigationCompleted(NavigationCompletedHandler* handler,
                                                              EventRegistrationToken* token) = 0;
    virtual HRESULT STDMETHODCALLTYPE remove_NavigationCompleted(EventRegistrationToken token) = 0;
    BROWSER_UNSUPPORTED(add_FrameNavigationStarting)
    BROWSER_UNSUPPORTED(remove_FrameNavigationStarting)
    BROWSER_UNSUPPORTED(add_FrameNavigationCompleted)
    BROWSER_UNSUPPORTED(remove_FrameNavigationCompleted)
    BROWSER_UNSUPPORTED(add_ScriptDialogOpening)
    BROWSER_UNSUPPORTED(remove_ScriptDialogOpening)
    virtual HRESULT STDMETHODCALLTYPE add_PermissionRequested(IUnknown* handler,
                                                              EventRegistrationToken* token) = 0;
    virtual HRESULT STDMETHODCALLTYPE remove_PermissionRequested(EventRegistrationToken token) = 0;
    virtual HRESULT STDMETHODCALLTYPE add_ProcessFailed(ProcessFailedHandler* handler,
                                                        EventRegistrationToken* token) = 0;
    virtual HRESULT STDMETHODCALLTYPE remove_ProcessFailed(EventRegistrationToken token) = 0;
    virtual HRESULT STDMETHODCALLTYPE
    AddScriptToExecuteOnDocumentCreated(LPCWSTR script, ScriptAddedHandler* handler) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveScriptToExecuteOnDocumentCreated(LPCWSTR id) = 0;
    virtual HRESULT STDMETHODCALLTYPE ExecuteScript(LPCWSTR script,
                                                    ScriptExecutedHandler* handler) = 0;
    BROWSER_UNSUPPORTED(CapturePreview)
    virtual HRESULT STDMETHODCALLTYPE Reload() = 0;
    BROWSER_UNSUPPORTED(PostWebMessageAsJson)
    BROWSER_UNSUPPORTED(PostWebMessageAsString)
    virtual HRESULT STDMETHODCALLTYPE add_WebMessageReceived(WebMessageReceivedHandler* handler,
                                                             EventRegistrationToken* token) = 0;
    virtual HRESULT STDMETHODCALLTYPE remove_WebMessageReceived(EventRegistrationToken token) = 0;
    BROWSER_UNSUPPORTED(CallDevToolsProtocolMethod)
    BROWSER_UNSUPPORTED(get_BrowserProcessId)
    BROWSER_UNSUPPORTED(get_CanGoBack)
    BROWSER_UNSUPPORTED(get_CanGoForward)
    BROWSER_UNSUPPORTED(GoBack)
    BROWSER_UNSUPPORTED(GoForward)
    BROWSER_UNSUPPORTED(GetDevToolsProtocolEventReceiver)
    BROWSER_UNSUPPORTED(Stop)
    BROWSER_UNSUPPORTED(add_NewWindowRequested)
    BROWSER_UNSUPPORTED(remove_NewWindowRequested)
    BROWSER_UNSUPPORTED(add_DocumentTitleChanged)
    BROWSER_UNSUPPORTED(remove_DocumentTitleChanged)
    BROWSER_UNSUPPORTED(get_DocumentTitle)
    BROWSER_UNSUPPORTED(AddHostObjectToScript)
    BROWSER_UNSUPPORTED(RemoveHostObjectFromScript)
    BROWSER_UNSUPPORTED(OpenDevToolsWindow)
    BROWSER_UNSUPPORTED(add_ContainsFullScreenElementChanged)
    BROWSER_UNSUPPORTED(remove_ContainsFullScreenElementChanged)
    BROWSER_UNSUPPORTED(get_ContainsFullScreenElement)
    BROWSER_UNSUPPORTED(add_WebResourceRequested)
    BROWSER_UNSUPPORTED(remove_WebResourceRequested)
    BROWSER_UNSUPPORTED(AddWebResourceRequestedFilter)
    BROWSER_UNSUPPORTED(RemoveWebResourceRequestedFilter)
    BROWSER_UNSUPPORTED(add_WindowCloseRequested)
    BROWSER_UNSUPPORTED(remove_WindowCloseRequested)

  protected:
    ~ICoreWebView2() = default;
};

inline constexpr IID iidView = {
    0x76ECEACB, 0x0462, 0x4D94, {0xAC, 0x83, 0x42, 0x3A, 0x67, 0x93, 0x77, 0x5E}};

}  // namespace ravelin::browser
