#include "persistence/app_settings.h"

#include <algorithm>

#include "input/engine_state.h"
#include "support/text.h"

namespace ravelin {
namespace {

constexpr std::string_view panelIds[] = {"panel-ui", "panel-profile", "panel-spammer",
                                         "panel-keyspam", "panel-tracker"};
constexpr std::string_view minimizedPrefix = "min:";

void tell(const std::function<void(bool)>& effect, bool value) {
    if (effect) effect(value);
}

void minimizePanel(const std::string& id, bool minimized) {
    if (!isPanelId(id)) return;
    if (minimized) {
        appSettings.minimizedPanels.insert(id);
    } else {
        appSettings.minimizedPanels.erase(id);
    }
}

void apply(const std::string& key, bool value) {
    AppSettings& s = appSettings;
    if (key == "alwaysOnTop") {
        s.alwaysOnTop = value;
        tell(appSettingEffects.alwaysOnTop, value);
    } else if (key == "launchOnStartup") {
        s.launchOnStartup = value;
        tell(appSettingEffects.launchOnStartup, value);
    } else if (key == "startMinimized") {
        s.startMinimized = value;
    } else if (key == "hotkeysEnabled") {
        hotkeys.enabled.exchange(value);
    } else if (key == "hotkeyLock") {
        hotkeys.lockOn.exchange(value);
        // Whichever way the lock was switched, the hotkeys act right after.
        hotkeys.unlocked.exchange(true);
    } else if (key == "stopToolsWithMacro") {
        engine.stopToolsWithMacro.exchange(value);
    } else if (key == "disableAnimations") {
        s.disableAnimations = value;
    } else if (key == "showWarnings") {
        s.showWarnings = value;
    } else if (key.starts_with(minimizedPrefix)) {
        minimizePanel(key.substr(minimizedPrefix.size()), value);
    }
}

void addFlag(std::string& json, std::string_view key, bool value) {
    json += json.empty() ? '{' : ',';
    json += '"';
    json += key;
    json += value ? "\":true" : "\":false";
}

template <class Items>
void addList(std::string& json, std::string_view key, const Items& items) {
    json += ",\"";
    json += key;
    json += "\":[";
    for (const auto& item : items) {
        if (json.back() != '[') json += ',';
        json += '"' + item + '"';
    }
    json += ']';
}

}  // namespace

bool isPanelId(std::string_view id) {
    return std::find(std::begin(panelIds), std::end(panelIds), id) != std::end(panelIds);
}

std::optional<std::vector<std::string>> parsePanelOrder(std::string_view text) {
    std::vector<std::string> order;
    while (const auto item = nextPiece(text, ',')) {
        if (item->empty()) continue;
        if (!isPanelId(*item) || std::find(order.begin(), order.end(), *item) != order.end())
            return std::nullopt;
        order.emplace_back(*item);
    }
    return order;
}

std::string getAppSettings() {
    const AppSettings& s = appSettings;
    std::string json;
    addFlag(json, "alwaysOnTop", s.alwaysOnTop);
    addFlag(json, "launchOnStartup", s.launchOnStartup);
    addFlag(json, "startMinimized", s.startMinimized);
    addFlag(json, "hotkeysEnabled", hotkeys.enabled.load());
    addFlag(json, "hotkeyLock", hotkeys.lockOn.load());
    addFlag(json, "disableAnimations", s.disableAnimations);
    addFlag(json, "showWarnings", s.showWarnings);
    addList(json, "seenWarnings", s.seenWarnings);
    addList(json, "minimizedPanels", s.minimizedPanels);
    addList(json, "panelOrder", s.panelOrder);
    return json + '}';
}

void setAppSetting(std::string_view args) {
    const auto items = splitList(flattenArgs(args), ',');
    if (items.size() != 2) return;
    apply(items[0], items[1] == "1");
    saveAppSettings();
}

void markWarningSeen(std::string_view args) {
    auto id = flattenArgs(args);
    if (!id.empty() && appSettings.seenWarnings.insert(std::move(id)).second) saveAppSettings();
}

void setPanelOrder(std::string_view args) {
    auto order = parsePanelOrder(flattenArgs(args));
    if (!order) return;
    appSettings.panelOrder = std::move(*order);
    saveAppSettings();
}

}  // namespace ravelin
