#include <windows.h>

#include <string>
#include <utility>

#include "app/engine_run.h"
#include "app/first_instance_win32.h"
#include "app/log_on.h"
#include "app/main_view.h"
#include "app/process_setup.h"
#include "app/run_modes.h"
#include "app/script_sink.h"
#include "app/single_instance.h"
#include "app/view_failure_message.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "persistence/app_settings.h"
#include "persistence/data_folder.h"
#include "persistence/legacy_files.h"
#include "persistence/profiles.h"
#include "persistence/session_file.h"
#include "themes/theme_ground.h"
#include "themes/theme_key.h"
#include "updater/stale_folders.h"
#include "updater/update_check.h"

namespace ravelin {
namespace {

// What older versions left beside the executable, under other names or in the temporary folder.
void tidyFiles() {
    migrateSessionFiles();
    migrateLegacyFile(dataFile("theme.txt"), "theme.txt");
    migrateLegacyFile(dataFile("appsettings.txt"), "appsettings.txt");
    deleteLegacyFile("status.txt");
    deleteLegacyFile("macroevents.txt");
    SweepStaleUpdateFolders();
}

void loadSessionOrDefaults() {
    installCrashHandler(saveSessionFromCrash);
    if (!loadSession()) addDefaultProfile();
    ensureDefaultProfile();
    sessionStands.exchange(true);
}

void prepareTiming() {
    requestTimerResolution();
    engine.counterFrequency.exchange(platform::counterFrequency());
}

void loadPreferences() {
    appSettingEffects.alwaysOnTop = [](bool on) {
        setAlwaysOnTop(findWindowByTitle(mainWindowTitle), on);
    };
    appSettingEffects.launchOnStartup = setLaunchAtLogOn;
    loadAppSettings();
    setLaunchAtLogOn(appSettings.launchOnStartup);
    currentThemeKey = readThemeKey(dataFile("theme.txt"));
}

// Asked for a second time and released once; the system drops the rest with the process.
void keepTimingInBackground() {
    requestTimerResolution();
    optOutOfTimerThrottling();
}

// The one that the page will take on.
std::string themeAtStart() {
    const std::string chosen = chosenTheme(appSettings.seenWarnings);
    return chosen.empty() ? currentThemeKey : chosen;
}

}  // namespace

int runNormally(const ComSession& com, const Switches& switches) {
    const SingleInstance instance;
    if (instance.alreadyRunning()) {
        activateWindow(findFirstInstanceWindow());
        return 0;
    }
    setUpdateManifestSource(switches.updateManifest);

    tidyFiles();
    loadSessionOrDefaults();
    prepareTiming();
    loadPreferences();
    keepTimingInBackground();
    setBrowserGround(groundOfTheme(themeAtStart()));
    EngineRun engineRun;
    engineRun.start();
    auto [view, failure] = makeMainView();
    if (view) failure = view->run();

    engineRun.stop();
    setPageScriptSink({});
    view.reset();
    com.leave();
    if (failure == ViewFailure{}) return 0;
    showViewFailure(failure);
    return 1;
}

}  // namespace ravelin
