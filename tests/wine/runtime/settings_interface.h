// The published settings interfaces, versions 1 to 6. Each version continues the vtable of the one
// before, so one declaration serves them all; the interface id alone tells them apart.
#pragma once

#include <unknwn.h>

#define BROWSER_SETTING(name)                                   \
    virtual HRESULT STDMETHODCALLTYPE get_##name(BOOL* on) = 0; \
    virtual HRESULT STDMETHODCALLTYPE put_##name(BOOL on) = 0;

namespace ravelin::browser {

struct ICoreWebView2Settings : IUnknown {
    BROWSER_SETTING(IsScriptEnabled)
    BROWSER_SETTING(IsWebMessageEnabled)
    BROWSER_SETTING(AreDefaultScriptDialogsEnabled)
    BROWSER_SETTING(IsStatusBarEnabled)
    BROWSER_SETTING(AreDevToolsEnabled)
    BROWSER_SETTING(AreDefaultContextMenusEnabled)
    BROWSER_SETTING(AreHostObjectsAllowed)
    BROWSER_SETTING(IsZoomControlEnabled)
    BROWSER_SETTING(IsBuiltInErrorPageEnabled)
    // Version 2
    virtual HRESULT STDMETHODCALLTYPE get_UserAgent(LPWSTR* agent) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_UserAgent(LPCWSTR agent) = 0;
    // Version 3
    BROWSER_SETTING(AreBrowserAcceleratorKeysEnabled)
    // Version 4
    BROWSER_SETTING(IsPasswordAutosaveEnabled)
    BROWSER_SETTING(IsGeneralAutofillEnabled)
    // Version 5
    BROWSER_SETTING(IsPinchZoomEnabled)
    // Version 6
    BROWSER_SETTING(IsSwipeNavigationEnabled)

  protected:
    ~ICoreWebView2Settings() = default;
};

inline constexpr IID iidSettings = {
    0xE562E4F0, 0xD7FA, 0x43AC, {0x8D, 0x71, 0xC0, 0x51, 0x50, 0x49, 0x9F, 0x00}};
inline constexpr IID iidSettings2 = {
    0xEE9A0F68, 0xF46C, 0x4E32, {0xAC, 0x23, 0xEF, 0x8C, 0xAC, 0x22, 0x4D, 0x2A}};
inline constexpr IID iidSettings3 = {
    0xFDB5AB74, 0xAF33, 0x4854, {0x84, 0xF0, 0x0A, 0x63, 0x1D, 0xEB, 0x5E, 0xBA}};
inline constexpr IID iidSettings4 = {
    0xCB56846C, 0x4168, 0x4D53, {0xB0, 0x4F, 0x03, 0xB6, 0xD6, 0x79, 0x6F, 0xF2}};
inline constexpr IID iidSettings5 = {
    0x183E7052, 0x1D03, 0x43A0, {0xAB, 0x99, 0x98, 0xE0, 0x43, 0xB6, 0x6B, 0x39}};
inline constexpr IID iidSettings6 = {
    0x11CB3ACD, 0x9BC8, 0x43B8, {0x83, 0xBF, 0xF4, 0x07, 0x53, 0x71, 0x4F, 0x87}};

}  // namespace ravelin::browser
