// Where test programs find the DevTools port of a running view.
#pragma once

#include <string>

#include "browser_process.h"

namespace ravelin::browser {

// Writes four lines (the port, the page's target id, this process's id, its command line) to
// "devtools.txt" in the browser's profile folder and, when RAVELIN_TEST_DEVTOOLS_DIR names a folder
// (a Unix path), to "<process id>.port" there; "<process id>-2.port" for the second view of the
// process and so on. A reader never sees half a file; the files go when the browser ends.
void publishDevTools(BrowserProcess& process, const std::string& target);

}  // namespace ravelin::browser
