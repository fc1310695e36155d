#include <windows.h>

#include <optional>
#include <utility>

#include "app/browser_settings.h"
#include "app/child_command_line.h"
#include "app/child_methods.h"
#include "app/child_window_win32.h"
#include "app/environment_win32.h"
#include "app/page_binding.h"
#include "app/page_file.h"
#include "app/page_keeper.h"
#include "app/panel_script.h"
#include "app/panels_on_top_win32.h"
#include "app/pipe_client.h"
#include "app/program_folder.h"
#include "app/run_modes.h"
#include "app/saved_state.h"
#include "app/view_failure_message.h"
#include "app/view_host_win32.h"
#include "app/web_view.h"
#include "app/window_opening_win32.h"
#include "app/window_titles.h"
#include "app/windows_win32.h"
#include "persistence/data_folder.h"
#include "persistence/legacy_files.h"
#include "support/utf.h"
#include "themes/theme_ground.h"

namespace ravelin {
namespace {

void migrateFiles() {
    migrateLegacyFile(dataFile("theme.txt"), "theme.txt");
    migrateLegacyFile(dataFile("appsettings.txt"), "appsettings.txt");
}

// The process's one panel, from its window to the end of its message loop.
class ChildPanel {
  public:
    ChildPanel(WebView& view, const ChildFields& fields)
        : view_(view),
          opening_(static_cast<HWND>(view.window()), WindowOpening::Activation::allowed),
          host_(view.browserController()),
          status_(dataFile("status.txt")),
          settings_(dataFile("session.dat")) {
        const std::string title = std::string(panelTitlePrefix) + ansiToUtf8(fields.title);
        view_.setTitle(title);
        view_.setSize(childWidth, childHeight);
        const auto window = static_cast<HWND>(view_.window());
        setWindowIcons(window);
        restrictBrowser(view_.browserController());
        std::optional<platform::Point> corner;
        if (fields.tornOffAt) corner = windowCorner(*fields.tornOffAt);
        window_.emplace(window, corner, events());
        followMainWindow(window);
        bindPageMethods(view_, childPageMethods(services()));
        if (showPage(fields)) {
            opening_.revealSoon();
        } else {
            opening_.reveal();
        }
        keepPage(view_, [this, fields] { showPage(fields); });
    }

  private:
    PanelWindowEvents events() {
        return {
            .hover = [](bool over) { sendToMainProcess("panelHover", over ? "1" : "0"); },
            .dockBack = [this] { view_.terminate(); },
            .follow = [this](const WindowMessage& message) { host_.follow(message); },
        };
    }

    ChildServices services() {
        return {
            .forward = sendToMainProcess,
            .resizeWindow =
                [this](std::int32_t width, std::int32_t height) {
                    resizeWindow(
                        static_cast<HWND>(view_.window()), width, height,
                        [this](std::int32_t w, std::int32_t h) { window_->setContentSize(w, h); });
                },
            .beginDrag = [this] { window_->beginDrag(); },
            .close = [this] { view_.terminate(); },
            .savedStatus = [this] { return mainWindowIsThere() ? status_.read() : std::string(); },
            .savedSettings = [this] { return settings_.read(); },
            .environment = [this] { return environmentOf(static_cast<HWND>(view_.window())); },
            .pagePainted =
                [this] {
                    // The window got its focus before anybody listened.
                    host_.takeFocusFrom(static_cast<HWND>(view_.window()));
                    opening_.reveal();
                },
        };
    }

    // A status that nobody writes any more would be shown as if it still held.
    static bool mainWindowIsThere() { return findWindowByTitle(mainWindowTitle) != nullptr; }

    // False when there is no page to be shown.
    bool showPage(const ChildFields& fields) {
        const auto folder = programFolder();
        auto page = readPage(folder);
        if (!page) {
            view_.setHtml("<h2>Error loading UI in child process</h2>");
            return false;
        }
        view_.setHtml(assemblePage(
            withPanelScript(std::move(*page), fields.panelId, fields.themeKey), folder));
        return true;
    }

    WebView& view_;
    WindowOpening opening_;
    ViewHost host_;
    SavedStatus status_;
    SavedSettings settings_;
    std::optional<ChildWindow> window_;
};

}  // namespace

int runChildPanel(const std::string& rawCommandLine) {
    migrateFiles();
    const ChildFields fields = readChildFields(rawCommandLine);
    setBrowserGround(groundOfTheme(fields.themeKey));
    auto [view, failure] = WebView::create();
    if (!view) {
        // Of what came up just now the main window has told, or has the panel again.
        if (isEquipmentMissing(failure)) showViewFailure(failure);
        return 1;
    }
    const ChildPanel panel(*view, fields);
    failure = view->run();
    // The engine may reach the panel until the view is gone.
    view.reset();
    return failure == ViewFailure{} ? 0 : 1;
}

}  // namespace ravelin
