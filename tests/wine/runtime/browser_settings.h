// The settings of one view, with the values that a new view has.
#pragma once

#include <string>

namespace ravelin::browser {

struct BrowserSettings {
    bool isScriptEnabled = true;
    bool isWebMessageEnabled = true;
    bool areDefaultScriptDialogsEnabled = true;
    bool isStatusBarEnabled = true;
    bool areDevToolsEnabled = true;
    bool areDefaultContextMenusEnabled = true;
    bool areHostObjectsAllowed = true;
    bool isZoomControlEnabled = true;
    bool isBuiltInErrorPageEnabled = true;
    std::string userAgent;
    bool areBrowserAcceleratorKeysEnabled = true;
    bool isPasswordAutosaveEnabled = false;
    bool isGeneralAutofillEnabled = true;
    bool isPinchZoomEnabled = true;
    bool isSwipeNavigationEnabled = true;
};

}  // namespace ravelin::browser
