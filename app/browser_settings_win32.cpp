#include "app/browser_settings.h"

#include "app/browser_interfaces_win32.h"

namespace ravelin {
namespace {

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
