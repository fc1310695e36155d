// The controller object that hosts see: the view's place, visibility, zoom and focus.
#pragma once

#include <memory>

#include "com_object.h"
#include "embedded_browser.h"
#include "view.h"

namespace ravelin::browser {

class Controller final : public ComObject<ICoreWebView2Controller, iidController> {
  public:
    explicit Controller(std::shared_ptr<EmbeddedBrowser> browser)
        : browser_(std::move(browser)), view_(makeCom<View>(browser_)) {}

    HRESULT STDMETHODCALLTYPE get_IsVisible(BOOL* visible) override;
    HRESULT STDMETHODCALLTYPE put_IsVisible(BOOL visible) override;
    HRESULT STDMETHODCALLTYPE get_Bounds(RECT* bounds) override;
    HRESULT STDMETHODCALLTYPE put_Bounds(RECT bounds) override;
    HRESULT STDMETHODCALLTYPE get_ZoomFactor(double* factor) override;
    HRESULT STDMETHODCALLTYPE put_ZoomFactor(double factor) override;
    HRESULT STDMETHODCALLTYPE SetBoundsAndZoomFactor(RECT bounds, double factor) override;
    HRESULT STDMETHODCALLTYPE MoveFocus(int reason) override;
    HRESULT STDMETHODCALLTYPE get_ParentWindow(HWND* parent) override;
    HRESULT STDMETHODCALLTYPE put_ParentWindow(HWND parent) override;
    HRESULT STDMETHODCALLTYPE NotifyParentWindowPositionChanged() override;
    HRESULT STDMETHODCALLTYPE Close() override;
    HRESULT STDMETHODCALLTYPE get_CoreWebView2(ICoreWebView2** view) override;

  private:
    ~Controller() override { browser_->close(); }

    std::shared_ptr<EmbeddedBrowser> browser_;
    ComPtr<View> view_;
    bool visible_ = true;
    RECT bounds_{};
};

}  // namespace ravelin::browser
