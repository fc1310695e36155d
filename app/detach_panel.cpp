#include "app/detach_panel.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>

#include "app/child_command_line.h"
#include "app/view_failure.h"
#include "persistence/app_settings.h"

namespace ravelin {
namespace {

using Json = nlohmann::json;

// A whole pixel; browsers report fractions of one on scaled screens.
std::optional<std::int32_t> readPixel(const Json& value) {
    constexpr double farthest = 1e6;
    if (!value.is_number()) return std::nullopt;
    const double pixel = value.get<double>();
    if (!(std::abs(pixel) <= farthest)) return std::nullopt;
    return static_cast<std::int32_t>(std::lround(pixel));
}

std::optional<ChildFields> readArguments(const std::string& args) {
    const Json list = Json::parse(args, nullptr, false);
    if (!list.is_array() || list.size() != 5) return std::nullopt;
    if (!list[0].is_string() || !list[1].is_string() || !list[4].is_string()) return std::nullopt;
    const auto x = readPixel(list[2]);
    const auto y = readPixel(list[3]);
    if (!x || !y) return std::nullopt;
    return ChildFields{.title = list[0].get<std::string>(),
                       .panelId = list[1].get<std::string>(),
                       .tornOffAt = platform::Point{*x, *y},
                       .themeKey = list[4].get<std::string>()};
}

}  // namespace

std::string detachPanel(const std::string& args, const DetachServices& services) {
    auto fields = readArguments(args);
    if (!fields || !isPanelId(fields->panelId)) return "There is no such panel to detach.";
    if (services.isOut(fields->panelId)) return "This panel is already in a window of its own.";
    if (!services.pipeIsServed())
        return "Another user's Ravelin is running on this computer. Until it is closed, panels "
               "cannot have windows of their own.";
    if (services.engineUpdated()) return engineUpdatedForPanel;
    if (fields->themeKey.empty()) fields->themeKey = services.themeKey;
    services.saveSession();
    if (!services.start(fields->panelId, childArguments(*fields)))
        return "The window for this panel could not be opened.";
    return {};
}

}  // namespace ravelin
