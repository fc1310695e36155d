#include <windows.h>

#include <memory>
#include <utility>

#include "app/browser_settings.h"
#include "app/child_panels.h"
#include "app/detach_panel.h"
#include "app/engine_runtime_win32.h"
#include "app/environment_win32.h"
#include "app/main_view.h"
#include "app/main_window_win32.h"
#include "app/page_binding.h"
#include "app/page_file.h"
#include "app/page_keeper.h"
#include "app/page_methods.h"
#include "app/pipe_server.h"
#include "app/program_folder.h"
#include "app/script_sink.h"
#include "app/shell.h"
#include "app/status_file.h"
#include "app/update_run.h"
#include "app/view_host_win32.h"
#include "app/window_opening_win32.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "input/requests.h"
#include "persistence/app_settings.h"
#include "persistence/session_file.h"
#include "support/utf.h"
#include "themes/theme_key.h"

namespace ravelin {
namespace {

constexpr int defaultWidth = 420;
constexpr int defaultHeight = 560;

// The window around the view, as far as it outlives the start.
struct OpenedWindow {
    explicit OpenedWindow(const WebView& view)
        : opening(static_cast<HWND>(view.window()), appSettings.startMinimized
                                                        ? WindowOpening::Activation::refused
                                                        : WindowOpening::Activation::allowed),
          host(view.browserController(), anyPanelOut) {}

    WindowOpening opening;
    // While a panel is out, the page takes back what becomes of it.
    ViewHost host;
};

std::vector<std::string> collectPanels(OpenedWindow& window) {
    auto ended = collectEndedPanels();
    if (!ended.empty()) window.host.updateVisibility();
    return ended;
}

MainWindowServices services(WebView& view, const std::shared_ptr<OpenedWindow>& window,
                            const std::string& engineVersion) {
    return {
        .resizeWindow =
            [&view](std::int32_t width, std::int32_t height) {
                resizeWindow(static_cast<HWND>(view.window()), width, height,
                             [&view](std::int32_t w, std::int32_t h) { view.setSize(w, h); });
            },
        .openAddress = openAddress,
        .collectEndedPanels = [window] { return collectPanels(*window); },
        .anyPanelEnded = anyPanelEnded,
        .writeStatusFile = writeStatusFile,
        .startUpdate = [&view](const std::string& callId) { startUpdate(view, callId); },
        .detachPanel =
            [engineVersion](const std::string& args) {
                return detachPanel(
                    args,
                    {.isOut = isPanelOut,
                     .pipeIsServed = [] { return !ipcUnavailable.load(); },
                     .engineUpdated = [&] { return installedEngineVersion() != engineVersion; },
                     .saveSession = saveSession,
                     .themeKey = currentThemeKey,
                     .start = startChildPanel});
            },
        .environment = [&view] { return environmentOf(static_cast<HWND>(view.window())); },
        .pagePainted =
            [&view, window] {
                // The window got its focus before anybody listened.
                window->host.takeFocusFrom(static_cast<HWND>(view.window()));
                window->opening.reveal();
            },
    };
}

// False when there is no page to be shown.
bool showPage(WebView& view) {
    const auto folder = programFolder();
    auto page = readPage(folder);
    if (!page) {
        showError("UI Error", "Failed to read:\n" + narrow(pagePath(folder).wstring()));
        return false;
    }
    view.setHtml(assemblePage(std::move(*page), folder));
    return true;
}

void storePlacement(const WindowPlacement& placement) {
    appSettings.windowX = placement.x;
    appSettings.windowY = placement.y;
    appSettings.windowWidth = placement.width;
    appSettings.windowHeight = placement.height;
    appSettings.windowMaximized = placement.maximized;
    appSettings.positionSaved = true;
    saveAppSettings();
}

void placeAndShow(WebView& view, const std::shared_ptr<OpenedWindow>& window) {
    const AppSettings& settings = appSettings;
    const MainWindowStart start{
        .placement = {settings.windowX, settings.windowY, settings.windowWidth,
                      settings.windowHeight, settings.windowMaximized, settings.positionSaved},
        .alwaysOnTop = settings.alwaysOnTop,
        .startMinimized = settings.startMinimized,
    };
    startMainWindow(
        findWindowByTitle(mainWindowTitle), start,
        {
            .store = storePlacement,
            .sessionEnds =
                [&view] {
                    saveSessionForGood();
                    // When nobody ends the process after all, it ends by itself.
                    view.terminate();
                },
            // On waking, everything that was due meanwhile would be sent at once.
            .sleepBegins = [] { postRequest(requests.stopPlayback); },
            .follow = [window](const WindowMessage& message) { window->host.follow(message); },
        });
}

// Takes the sink away again when the view behind it does not come to be.
struct SinkOfView {
    explicit SinkOfView(WebView& view) {
        setPageScriptSink([&view](const std::string& script) {
            view.dispatch([&view, script] { view.eval(script); });
        });
    }
    SinkOfView(const SinkOfView&) = delete;
    SinkOfView& operator=(const SinkOfView&) = delete;
    ~SinkOfView() {
        if (!kept) setPageScriptSink({});
    }
    bool kept = false;
};

}  // namespace

WebView::Created makeMainView() {
    const std::string engineVersion = installedEngineVersion();
    auto created = WebView::create();
    if (!created.view) return created;
    WebView& view = *created.view;
    const auto window = std::make_shared<OpenedWindow>(view);
    SinkOfView sink(view);
    view.setTitle(std::string(mainWindowTitle));
    setWindowIcons(findWindowByTitle(mainWindowTitle));
    restrictBrowser(view.browserController());
    view.setSize(defaultWidth, defaultHeight);
    bindPageMethods(view, mainPageMethods(services(view, window, engineVersion)));
    const bool pageComes = showPage(view);
    keepPage(view, [&view] { showPage(view); });
    window->opening.allowActivation();
    placeAndShow(view, window);
    if (pageComes && !appSettings.startMinimized) {
        window->opening.revealSoon();
    } else {
        window->opening.reveal();
    }
    sink.kept = true;
    return created;
}

}  // namespace ravelin
