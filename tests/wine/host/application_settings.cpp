#include "application_settings.h"

#include <windows.h>
#include <wrl/client.h>

#include "../runtime/view_interface.h"

namespace ravelin::browser_host {

bool useApplicationSettings(void* controller) {
    using Microsoft::WRL::ComPtr;
    using namespace ravelin::browser;
    ComPtr<ICoreWebView2> view;
    ComPtr<ICoreWebView2Settings> settings;
    ComPtr<ICoreWebView2Settings> settings3;
    if (FAILED(static_cast<ICoreWebView2Controller*>(controller)->get_CoreWebView2(&view)) ||
        FAILED(view->get_Settings(&settings)) ||
        FAILED(settings->QueryInterface(iidSettings3,
                                        reinterpret_cast<void**>(settings3.GetAddressOf())))) {
        return false;
    }
    settings->put_AreDefaultContextMenusEnabled(FALSE);
    settings->put_IsZoomControlEnabled(FALSE);
    settings3->put_AreBrowserAcceleratorKeysEnabled(FALSE);
    BOOL menus = TRUE;
    BOOL zoom = TRUE;
    BOOL keys = TRUE;
    settings->get_AreDefaultContextMenusEnabled(&menus);
    settings->get_IsZoomControlEnabled(&zoom);
    settings3->get_AreBrowserAcceleratorKeysEnabled(&keys);
    return menus == FALSE && zoom == FALSE && keys == FALSE;
}

}  // namespace ravelin::browser_host
