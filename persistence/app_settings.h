// The program-wide preferences that belong to no profile: window behaviour, warnings, the layout
// of the page's panels and the main window's last placement.
//
// Read once at start before any other thread exists, then touched by the user-interface thread
// alone. Three more preferences are atomics of the engine, which reads them on its own threads:
// hotkeysEnabled (`hotkeys.enabled`), hotkeyLockOn (`hotkeys.lockOn`) and stopToolsWithMacro
// (`engine.stopToolsWithMacro`). They are stored in the same file.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ravelin {

struct AppSettings {
    bool alwaysOnTop = false;
    bool launchOnStartup = false;
    bool startMinimized = false;
    bool disableAnimations = false;  // of the page
    bool showWarnings = true;
    std::set<std::string> seenWarnings;  // ids of warnings that the user has dismissed for good
    std::set<std::string> minimizedPanels;
    std::vector<std::string> panelOrder;

    // The main window's restored placement, in screen pixels.
    std::int32_t windowX = 0;
    std::int32_t windowY = 0;
    std::int32_t windowWidth = 420;
    std::int32_t windowHeight = 560;
    bool windowMaximized = false;
    // The placement is worth using: windowX was read from the file or the window recorded it.
    bool positionSaved = false;
};

inline AppSettings appSettings;

// What changing a setting does beyond storing it; set by the application shell, which finds the
// window and knows the registry. An empty one does nothing.
struct AppSettingEffects {
    std::function<void(bool)> alwaysOnTop;
    std::function<void(bool)> launchOnStartup;
};

inline AppSettingEffects appSettingEffects;

// "panel-ui", "panel-profile", "panel-spammer", "panel-keyspam" or "panel-tracker".
bool isPanelId(std::string_view id);

// Panel ids separated by commas, empty items skipped. Nothing when an item is no panel id or
// stands there twice.
std::optional<std::vector<std::string>> parsePanelOrder(std::string_view text);

// Overlays the defaults with what the file in the data folder holds, line by line; a line that
// makes no sense is skipped. Waits up to a second for a file that another program has locked. One
// that stays unreadable is copied to "appsettings.txt.unread" before the first save.
void loadAppSettings();
// Rewrites the file. Failures are silent: the settings stay in memory for the next save.
void saveAppSettings();

// The page's methods. The arguments are the page's raw text. All but the first return nothing to
// the page, ignore arguments that make no sense, and save what they change.
std::string getAppSettings();
// [key, value], the value being true exactly when it is "1". Saves whenever there are two items,
// even when the key changes nothing.
void setAppSetting(std::string_view args);
// [warningId]; saves when the id is new.
void markWarningSeen(std::string_view args);
// [panelId, ...]
void setPanelOrder(std::string_view args);

}  // namespace ravelin
