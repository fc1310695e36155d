// The main window: its view, page methods and page.
#pragma once

#include "app/web_view.h"

namespace ravelin {

// The main window with its page, placed and shown, ready for the message loop; a null view and the
// reason when there is none to be had. Installs the page script sink.
WebView::Created makeMainView();

}  // namespace ravelin
