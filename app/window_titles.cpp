#include "app/window_titles.h"

namespace ravelin {

bool isMainWindowTitle(std::string_view title) {
    return (title.starts_with("Ravelin (") && title.find(" Version ") != std::string_view::npos) ||
           title == "Ravelin Input Studio (Studio Edition)";
}

}  // namespace ravelin
