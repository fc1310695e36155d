// The controller of a view without a window, which hosts ask for to learn whether they would get a
// view. There is nothing to see in it and so no browser behind it.
#pragma once

#include "com_interfaces.h"
#include "com_object.h"

namespace ravelin::browser {

class UnseenController final : public ComObject<ICoreWebView2Controller, iidController> {
  public:
    HRESULT STDMETHODCALLTYPE get_IsVisible(BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_IsVisible(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Bounds(RECT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Bounds(RECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ZoomFactor(double*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ZoomFactor(double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetBoundsAndZoomFactor(RECT, double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MoveFocus(int) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ParentWindow(HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ParentWindow(HWND) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyParentWindowPositionChanged() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Close() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE get_CoreWebView2(ICoreWebView2**) override { return E_NOTIMPL; }

  private:
    ~UnseenController() override = default;
};

}  // namespace ravelin::browser
