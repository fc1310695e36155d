#include "settings.h"

namespace ravelin::browser {

HRESULT STDMETHODCALLTYPE Settings::get_UserAgent(LPWSTR* agent) {
    if (agent == nullptr) return E_POINTER;
    *agent = comText(browser_->settings().userAgent);
    return *agent == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT STDMETHODCALLTYPE Settings::put_UserAgent(LPCWSTR agent) {
    if (agent == nullptr) return E_POINTER;
    browser_->settings().userAgent = toUtf8(agent);
    browser_->page().input("Emulation.setUserAgentOverride",
                           {{"userAgent", browser_->settings().userAgent}});
    return S_OK;
}

}  // namespace ravelin::browser
