#include "app/browser_settings.h"

#include "app/browser_interfaces_win32.h"

namespace ravelin {
namespace {

constexpr GUID settings3Id = {
    0xfdb5ab74, 0xaf33, 0x4854, {0x84, 0xf0, 0x0a, 0x63, 0x1d, 0xeb, 0x5e, 0xba}};

constexpr GUID settings5Id = {
    0x183e7052, 0x1d03, 0x43a0, {0xab, 0x99, 0x98, 0xe0, 0x43, 0xb6, 0x6b, 0x39}};

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
    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    // Asks an object for another of its interfaces; false when it is too old to have it.
    bool ask(IUnknown* object, const GUID& id) {
        return SUCCEEDED(object->QueryInterface(id, reinterpret_cast<void**>(&pointer_))) &&
               pointer_ != nullptr;
    }

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
    if (settings3.ask(settings.get(), settings3Id))
        settings3->putAreBrowserAcceleratorKeysEnabled(FALSE);
    ComPointer<BrowserSettings5> settings5;
    if (settings5.ask(settings.get(), settings5Id)) settings5->putIsPinchZoomEnabled(FALSE);
}

}  // namespace ravelin
