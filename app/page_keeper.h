// Keeps a view's page alive.
#pragma once

#include <functional>

namespace ravelin {

class WebView;

// From here on the page is shown again, in the view's message loop, when its process in the browser
// engine has ended; and that loop is broken off when the engine itself has. Called once a view,
// which outlives what it is given.
void keepPage(WebView& view, std::function<void()> showPage);

}  // namespace ravelin
