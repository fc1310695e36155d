#include "app/browser_settings.h"

#include <windows.h>
// unknwn.h wants windows.h first.
#include <unknwn.h>

namespace ravelin {
namespace {

// A virtual destructor would add slots to the interfaces, whose order is fixed; nothing is deleted
// through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A method in the interface's published order that the program never calls.
#define RAVELIN_UNUSED_SLOT(name) virtual HRESULT STDMETHODCALLTYPE name() = 0

// The browser engine's interfaces as far as they are called here.
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

struct BrowserView : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE getSettings(BrowserSettings** settings) = 0;
};

struct BrowserController : IUnknown {
    RAVELIN_UNUSED_SLOT(getIsVisible);
    RAVELIN_UNUSED_SLOT(putIsVisible);
    RAVELIN_UNUSED_SLOT(getBounds);
    RAVELIN_UNUSED_SLOT(putBounds);
    RAVELIN_UNUSED_SLOT(getZoomFactor);
    RAVELIN_UNUSED_SLOT(putZoomFactor);
    RAVELIN_UNUSED_SLOT(addZoomFactorChanged);
    RAVELIN_UNUSED_SLOT(removeZoomFactorChanged);
    RAVELIN_UNUSED_SLOT(setBoundsAndZoomFactor);
    RAVELIN_UNUSED_SLOT(moveFocus);
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
    RAVELIN_UNUSED_SLOT(notifyParentWindowPositionChanged);
    RAVELIN_UNUSED_SLOT(close);
    virtual HRESULT STDMETHODCALLTYPE getBrowserView(BrowserView** view) = 0;
};

#undef RAVELIN_UNUSED_SLOT
#pragma GCC diagnostic pop

constexpr GUID settings3Id = {
    0xfdb5ab74, 0xaf33, 0x4854, {0x84, 0xf0, 0x0a, 0x63, 0x1d, 0xeb, 0x5e, 0xba}};

template <class Interface>
class ComPointer {
  public:
    ComPointer() = default;
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    ~ComPointer() {
        if (pointer_ != nullptr) pointer_->Release();
    }
    Interface** out() { return &pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

  private:
    Interface* pointer_ = nullptr;
};

}  // namespace

void restrictBrowser(void* browserController) {
    if (browserController == nullptr) return;
    ComPointer<BrowserView> view;
    ComPointer<BrowserSettings> settings;
    static_cast<BrowserController*>(browserController)->getBrowserView(view.out());
    if (!view || FAILED(view->getSettings(settings.out())) || !settings) return;
    settings->putAreDefaultContextMenusEnabled(FALSE);
    settings->putIsZoomControlEnabled(FALSE);
    ComPointer<BrowserSettings3> settings3;
    if (SUCCEEDED(
            settings->QueryInterface(settings3Id, reinterpret_cast<void**>(settings3.out()))) &&
        settings3)
        settings3->putAreBrowserAcceleratorKeysEnabled(FALSE);
}

}  // namespace ravelin
