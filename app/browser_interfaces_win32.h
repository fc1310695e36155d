// The browser engine's COM interfaces in their published order, as far as the program calls them.
//
// Their classes live in the browser engine. They must not stand in an unnamed namespace: the
// compiler would conclude that no class implements them and that no call of theirs is ever reached.
#pragma once

#include <windows.h>
// Wants windows.h first.
#include <unknwn.h>

namespace ravelin {

// A virtual destructor would add slots to the interfaces, whose order is fixed; nothing is deleted
// through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A method in the interface's published order that the program never calls.
#define RAVELIN_UNUSED_SLOT(name) virtual HRESULT STDMETHODCALLTYPE name() = 0

struct BrowserSettings : IUnknown {
    RAVELIN_UNUSED_SLOT(getIsScriptEnabled);
    RAVELIN_UNUSED_SLOT(putIsScriptEnabled);
    RAVELIN_UNUSED_SLOT(getIsWebMessageEnabled);
    RAVELIN_UNUSED_SLOT(putIsWebMessageEnabled);
    RAVELIN_UNUSED_SLOT(getAreDefaultScriptDialogsEnabled);
    RAVELIN_UNUSED_SLOT(putAreDefaultScriptDialogsEnabled);
    RAVELIN_UNUSED_SLOT(getIsStatusBarEnabled);
    RAVELIN_UNUSED_SLOT(putIsStatusBarEnabled);
    RAVELIN_UNUSED_SLOT(getAreDevToolsEnabled);
    RAVELIN_UNUSED_SLOT(putAreDevToolsEnabled);
    RAVELIN_UNUSED_SLOT(getAreDefaultContextMenusEnabled);
    virtual HRESULT STDMETHODCALLTYPE putAreDefaultContextMenusEnabled(BOOL enabled) = 0;
    RAVELIN_UNUSED_SLOT(getAreHostObjectsAllowed);
    RAVELIN_UNUSED_SLOT(putAreHostObjectsAllowed);
    RAVELIN_UNUSED_SLOT(getIsZoomControlEnabled);
    virtual HRESULT STDMETHODCALLTYPE putIsZoomControlEnabled(BOOL enabled) = 0;
    RAVELIN_UNUSED_SLOT(getIsBuiltInErrorPageEnabled);
    RAVELIN_UNUSED_SLOT(putIsBuiltInErrorPageEnabled);
};

struct BrowserSettings3 : BrowserSettings {
    RAVELIN_UNUSED_SLOT(getUserAgent);
    RAVELIN_UNUSED_SLOT(putUserAgent);
    RAVELIN_UNUSED_SLOT(getAreBrowserAcceleratorKeysEnabled);
    virtual HRESULT STDMETHODCALLTYPE putAreBrowserAcceleratorKeysEnabled(BOOL enabled) = 0;
};

struct BrowserSettings5 : BrowserSettings3 {
    RAVELIN_UNUSED_SLOT(getIsPasswordAutosaveEnabled);
    RAVELIN_UNUSED_SLOT(putIsPasswordAutosaveEnabled);
    RAVELIN_UNUSED_SLOT(getIsGeneralAutofillEnabled);
    RAVELIN_UNUSED_SLOT(putIsGeneralAutofillEnabled);
    RAVELIN_UNUSED_SLOT(getIsPinchZoomEnabled);
    virtual HRESULT STDMETHODCALLTYPE putIsPinchZoomEnabled(BOOL enabled) = 0;
};

// What the engine calls back: handlers of events and of what it does in its own time.
template <class... Arguments>
struct BrowserHandler : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE invoke(Arguments... arguments) = 0;
};

struct BrowserView;
struct BrowserController;

struct ProcessFailedArguments : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE getProcessFailedKind(int* kind) = 0;
};
using ProcessFailedHandler = BrowserHandler<BrowserView*, ProcessFailedArguments*>;

// What an event's handler is removed by.
struct BrowserEventToken {
    __int64 value = 0;
};

struct BrowserView : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE getSettings(BrowserSettings** settings) = 0;
    RAVELIN_UNUSED_SLOT(getSource);
    RAVELIN_UNUSED_SLOT(navigate);
    RAVELIN_UNUSED_SLOT(navigateToString);
    RAVELIN_UNUSED_SLOT(addNavigationStarting);
    RAVELIN_UNUSED_SLOT(removeNavigationStarting);
    RAVELIN_UNUSED_SLOT(addContentLoading);
    RAVELIN_UNUSED_SLOT(removeContentLoading);
    RAVELIN_UNUSED_SLOT(addSourceChanged);
    RAVELIN_UNUSED_SLOT(removeSourceChanged);
    RAVELIN_UNUSED_SLOT(addHistoryChanged);
    RAVELIN_UNUSED_SLOT(removeHistoryChanged);
    RAVELIN_UNUSED_SLOT(addNavigationCompleted);
    RAVELIN_UNUSED_SLOT(removeNavigationCompleted);
    RAVELIN_UNUSED_SLOT(addFrameNavigationStarting);
    RAVELIN_UNUSED_SLOT(removeFrameNavigationStarting);
    RAVELIN_UNUSED_SLOT(addFrameNavigationCompleted);
    RAVELIN_UNUSED_SLOT(removeFrameNavigationCompleted);
    RAVELIN_UNUSED_SLOT(addScriptDialogOpening);
    RAVELIN_UNUSED_SLOT(removeScriptDialogOpening);
    RAVELIN_UNUSED_SLOT(addPermissionRequested);
    RAVELIN_UNUSED_SLOT(removePermissionRequested);
    virtual HRESULT STDMETHODCALLTYPE addProcessFailed(ProcessFailedHandler* handler,
                                                       BrowserEventToken* token) = 0;
};

struct BrowserController : IUnknown {
    RAVELIN_UNUSED_SLOT(getIsVisible);
    virtual HRESULT STDMETHODCALLTYPE putIsVisible(BOOL visible) = 0;
    RAVELIN_UNUSED_SLOT(getBounds);
    RAVELIN_UNUSED_SLOT(putBounds);
    RAVELIN_UNUSED_SLOT(getZoomFactor);
    RAVELIN_UNUSED_SLOT(putZoomFactor);
    RAVELIN_UNUSED_SLOT(addZoomFactorChanged);
    RAVELIN_UNUSED_SLOT(removeZoomFactorChanged);
    RAVELIN_UNUSED_SLOT(setBoundsAndZoomFactor);
    virtual HRESULT STDMETHODCALLTYPE moveFocus(int reason) = 0;
    RAVELIN_UNUSED_SLOT(addMoveFocusRequested);
    RAVELIN_UNUSED_SLOT(removeMoveFocusRequested);
    RAVELIN_UNUSED_SLOT(addGotFocus);
    RAVELIN_UNUSED_SLOT(removeGotFocus);
    RAVELIN_UNUSED_SLOT(addLostFocus);
    RAVELIN_UNUSED_SLOT(removeLostFocus);
    RAVELIN_UNUSED_SLOT(addAcceleratorKeyPressed);
    RAVELIN_UNUSED_SLOT(removeAcceleratorKeyPressed);
    RAVELIN_UNUSED_SLOT(getParentWindow);
    RAVELIN_UNUSED_SLOT(putParentWindow);
    virtual HRESULT STDMETHODCALLTYPE notifyParentWindowPositionChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE close() = 0;
    virtual HRESULT STDMETHODCALLTYPE getBrowserView(BrowserView** view) = 0;
};

using ControllerHandler = BrowserHandler<HRESULT, BrowserController*>;

struct BrowserEnvironment : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE createController(HWND parent, ControllerHandler* handler) = 0;
};
using EnvironmentHandler = BrowserHandler<HRESULT, BrowserEnvironment*>;

#undef RAVELIN_UNUSED_SLOT
#pragma GCC diagnostic pop

}  // namespace ravelin
