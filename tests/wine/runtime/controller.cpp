#include "controller.h"

namespace ravelin::browser {

HRESULT STDMETHODCALLTYPE Controller::get_IsVisible(BOOL* visible) {
    if (visible == nullptr) return E_POINTER;
    *visible = visible_ ? TRUE : FALSE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::put_IsVisible(BOOL visible) {
    if (visible_ == (visible != FALSE)) return S_OK;
    visible_ = visible != FALSE;
    browser_->show(visible_);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::get_Bounds(RECT* bounds) {
    if (bounds == nullptr) return E_POINTER;
    *bounds = bounds_;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::put_Bounds(RECT bounds) {
    bounds_ = bounds;
    browser_->place(bounds);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::get_ZoomFactor(double* factor) {
    if (factor == nullptr) return E_POINTER;
    *factor = browser_->zoom();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::put_ZoomFactor(double factor) {
    if (!(factor > 0.0)) return E_INVALIDARG;
    browser_->setZoom(factor);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::SetBoundsAndZoomFactor(RECT bounds, double factor) {
    const HRESULT result = put_ZoomFactor(factor);
    return FAILED(result) ? result : put_Bounds(bounds);
}

HRESULT STDMETHODCALLTYPE Controller::MoveFocus(int) {
    browser_->takeFocus();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::get_ParentWindow(HWND* parent) {
    if (parent == nullptr) return E_POINTER;
    *parent = browser_->parent();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::put_ParentWindow(HWND parent) {
    browser_->moveTo(parent);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::NotifyParentWindowPositionChanged() {
    browser_->followMove();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::Close() {
    browser_->close();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Controller::get_CoreWebView2(ICoreWebView2** view) {
    if (view == nullptr) return E_POINTER;
    return view_.CopyTo(iidView, reinterpret_cast<void**>(view));
}

}  // namespace ravelin::browser
