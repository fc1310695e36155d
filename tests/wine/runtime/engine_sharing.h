// Processes with the same folder for their data share one browser, so none of another version may
// join them.
#pragma once

#include <string>

namespace ravelin::browser {

// Takes part in the folder's browser for the rest of this process; false, and no part, while a
// process takes part whose engine has another version.
bool joinBrowser(const std::wstring& dataFolder);

}  // namespace ravelin::browser
