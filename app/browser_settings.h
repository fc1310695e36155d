// What the program switches off in the embedded browser.
#pragma once

namespace ravelin {

// Switches off default context menus, zoom control and browser accelerator keys of the view behind
// the controller (a COM interface pointer). A null controller or a missing interface is passed
// over.
void restrictBrowser(void* browserController);

}  // namespace ravelin
