// Puts page methods into a view's script world.
#pragma once

#include <vector>

#include "app/page_methods.h"
#include "app/web_view.h"

namespace ravelin {

// Binds the methods in their order. The view keeps them; it must outlive its message loop.
void bindPageMethods(WebView& view, const std::vector<PageMethod>& methods);

}  // namespace ravelin
