// The settings object that hosts see: remembers every value of a view's settings.
#pragma once

#include <memory>

#include "com_object.h"
#include "embedded_browser.h"
#include "settings_interface.h"

namespace ravelin::browser {

#define BROWSER_SETTING_MEMBER(name, member)                  \
    HRESULT STDMETHODCALLTYPE get_##name(BOOL* on) override { \
        if (on == nullptr) return E_POINTER;                  \
        *on = browser_->settings().member ? TRUE : FALSE;     \
        return S_OK;                                          \
    }                                                         \
    HRESULT STDMETHODCALLTYPE put_##name(BOOL on) override {  \
        browser_->settings().member = on != FALSE;            \
        return S_OK;                                          \
    }

class Settings final : public ComObject<ICoreWebView2Settings, iidSettings, iidSettings2,
                                        iidSettings3, iidSettings4, iidSettings5, iidSettings6> {
  public:
    explicit Settings(std::shared_ptr<EmbeddedBrowser> browser) : browser_(std::move(browser)) {}

    BROWSER_SETTING_MEMBER(IsScriptEnabled, isScriptEnabled)
    BROWSER_SETTING_MEMBER(IsWebMessageEnabled, isWebMessageEnabled)
    BROWSER_SETTING_MEMBER(AreDefaultScriptDialogsEnabled, areDefaultScriptDialogsEnabled)
    BROWSER_SETTING_MEMBER(IsStatusBarEnabled, isStatusBarEnabled)
    BROWSER_SETTING_MEMBER(AreDevToolsEnabled, areDevToolsEnabled)
    BROWSER_SETTING_MEMBER(AreDefaultContextMenusEnabled, areDefaultContextMenusEnabled)
    BROWSER_SETTING_MEMBER(AreHostObjectsAllowed, areHostObjectsAllowed)
    BROWSER_SETTING_MEMBER(IsZoomControlEnabled, isZoomControlEnabled)
    BROWSER_SETTING_MEMBER(IsBuiltInErrorPageEnabled, isBuiltInErrorPageEnabled)
    BROWSER_SETTING_MEMBER(AreBrowserAcceleratorKeysEnabled, areBrowserAcceleratorKeysEnabled)
    BROWSER_SETTING_MEMBER(IsPasswordAutosaveEnabled, isPasswordAutosaveEnabled)
    BROWSER_SETTING_MEMBER(IsGeneralAutofillEnabled, isGeneralAutofillEnabled)
    BROWSER_SETTING_MEMBER(IsPinchZoomEnabled, isPinchZoomEnabled)
    BROWSER_SETTING_MEMBER(IsSwipeNavigationEnabled, isSwipeNavigationEnabled)

    HRESULT STDMETHODCALLTYPE get_UserAgent(LPWSTR* agent) override;
    HRESULT STDMETHODCALLTYPE put_UserAgent(LPCWSTR agent) override;

  private:
    ~Settings() override = default;

    std::shared_ptr<EmbeddedBrowser> browser_;
};

}  // namespace ravelin::browser
