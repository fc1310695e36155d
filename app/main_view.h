// The main window: its view, page methods and page.
#pragma once

#include "app/web_view.h"

namespace ravelin {

// The main window with its page, placed and shown, ready for the message loop; a null view and the
// reason when the view library or the browser runtime is missing. Installs the page script sink.
WebView::Created makeMainView();

// Tells the user in a message box what is missing and where to get it.
void showMissingEquipment(WebViewFailure failure);

}  // namespace ravelin
