// The published COM interfaces of the embedded browser as far as hosts call them: every slot of a
// vtable is there in its published order; those that nobody needs answer E_NOTIMPL and leave a line
// in the log. On x64 the caller clears the stack, so such a slot needs no parameter list.
#pragma once

#include <eventtoken.h>
#include <unknwn.h>

#include "log.h"

#define BROWSER_UNSUPPORTED(name)              \
    virtual HRESULT STDMETHODCALLTYPE name() { \
        return unsupportedCall(#name);         \
    }

namespace ravelin::browser {

// Logs the call and returns E_NOTIMPL.
HRESULT unsupportedCall(const char* name);

struct ICoreWebView2;
struct ICoreWebView2Controller;
struct ICoreWebView2Environment;

// A published completion or event handler: one Invoke behind IUnknown.
template <class... Arguments>
struct Handler : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Invoke(Arguments... arguments) = 0;

  protected:
    ~Handler() = default;
};

struct ICoreWebView2WebMessageReceivedEventArgs : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Source(LPWSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_WebMessageAsJson(LPWSTR* json) = 0;
    virtual HRESULT STDMETHODCALLTYPE TryGetWebMessageAsString(LPWSTR* text) = 0;

  protected:
    ~ICoreWebView2WebMessageReceivedEventArgs() = default;
};

struct ICoreWebView2NavigationCompletedEventArgs : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_IsSuccess(BOOL* success) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_WebErrorStatus(int* status) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_NavigationId(UINT64* id) = 0;

  protected:
    ~ICoreWebView2NavigationCompletedEventArgs() = default;
};

struct ICoreWebView2ProcessFailedEventArgs : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_ProcessFailedKind(int* kind) = 0;

  protected:
    ~ICoreWebView2ProcessFailedEventArgs() = default;
};

using EnvironmentCompletedHandler = Handler<HRESULT, ICoreWebView2Environment*>;
using ControllerCompletedHandler = Handler<HRESULT, ICoreWebView2Controller*>;
using ScriptAddedHandler = Handler<HRESULT, LPCWSTR>;
using ScriptExecutedHandler = Handler<HRESULT, LPCWSTR>;
using WebMessageReceivedHandler =
    Handler<ICoreWebView2*, ICoreWebView2WebMessageReceivedEventArgs*>;
using NavigationCompletedHandler =
    Handler<ICoreWebView2*, ICoreWebView2NavigationCompletedEventArgs*>;
using ProcessFailedHandler = Handler<ICoreWebView2*, ICoreWebView2ProcessFailedEventArgs*>;

struct ICoreWebView2Environment : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE
    CreateCoreWebView2Controller(HWND parent, ControllerCompletedHandler* handler) = 0;
    BROWSER_UNSUPPORTED(CreateWebResourceResponse)
    virtual HRESULT STDMETHODCALLTYPE get_BrowserVersionString(LPWSTR* version) = 0;
    BROWSER_UNSUPPORTED(add_NewBrowserVersionAvailable)
    BROWSER_UNSUPPORTED(remove_NewBrowserVersionAvailable)

  protected:
    ~ICoreWebView2Environment() = default;
};

struct ICoreWebView2Controller : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_IsVisible(BOOL* visible) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_IsVisible(BOOL visible) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Bounds(RECT* bounds) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Bounds(RECT bounds) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ZoomFactor(double* factor) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ZoomFactor(double factor) = 0;
    BROWSER_UNSUPPORTED(add_ZoomFactorChanged)
    BROWSER_UNSUPPORTED(remove_ZoomFactorChanged)
    virtual HRESULT STDMETHODCALLTYPE SetBoundsAndZoomFactor(RECT bounds, double factor) = 0;
    virtual HRESULT STDMETHODCALLTYPE MoveFocus(int reason) = 0;
    BROWSER_UNSUPPORTED(add_MoveFocusRequested)
    BROWSER_UNSUPPORTED(remove_MoveFocusRequested)
    BROWSER_UNSUPPORTED(add_GotFocus)
    BROWSER_UNSUPPORTED(remove_GotFocus)
    BROWSER_UNSUPPORTED(add_LostFocus)
    BROWSER_UNSUPPORTED(remove_LostFocus)
    BROWSER_UNSUPPORTED(add_AcceleratorKeyPressed)
    BROWSER_UNSUPPORTED(remove_AcceleratorKeyPressed)
    virtual HRESULT STDMETHODCALLTYPE get_ParentWindow(HWND* parent) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ParentWindow(HWND parent) = 0;
    virtual HRESULT STDMETHODCALLTYPE NotifyParentWindowPositionChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE Close() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CoreWebView2(ICoreWebView2** view) = 0;

  protected:
    ~ICoreWebView2Controller() = default;
};

inline constexpr IID iidEnvironmentCompletedHandler = {
    0x4E8A3389, 0xC9D8, 0x4BD2, {0xB6, 0xB5, 0x12, 0x4F, 0xEE, 0x6C, 0xC1, 0x4D}};
inline constexpr IID iidEnvironment = {
    0xB96D755E, 0x0319, 0x4E92, {0xA2, 0x96, 0x23, 0x43, 0x6F, 0x46, 0xA1, 0xFC}};
inline constexpr IID iidController = {
    0x4D00C0D1, 0x9434, 0x4EB6, {0x80, 0x78, 0x86, 0x97, 0xA5, 0x60, 0x33, 0x4F}};
inline constexpr IID iidWebMessageReceivedEventArgs = {
    0x0F99A40C, 0xE962, 0x4207, {0x9E, 0x92, 0xE3, 0xD5, 0x42, 0xEF, 0xF8, 0x49}};
inline constexpr IID iidProcessFailedEventArgs = {
    0x8155A9A4, 0x1474, 0x4A86, {0x8C, 0xAE, 0x15, 0x1B, 0x0F, 0xA6, 0xB8, 0xCA}};
inline constexpr IID iidNavigationCompletedEventArgs = {
    0x30D68B7D, 0x20D9, 0x4752, {0xA9, 0xCA, 0xEC, 0x84, 0x48, 0xFB, 0xB5, 0xC1}};

}  // namespace ravelin::browser
