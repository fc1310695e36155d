// The file of the application settings: one "key=value" a line in a fixed order.
#include <atomic>
#include <optional>
#include <vector>

#include "input/engine_state.h"
#include "input/platform.h"
#include "persistence/app_settings.h"
#include "persistence/data_folder.h"
#include "persistence/session_file.h"
#include "persistence/unread_file.h"
#include "support/file_system.h"
#include "support/line_reader.h"
#include "support/number_text.h"
#include "support/text.h"
#include "support/text_file.h"

namespace ravelin {
namespace {

// Hands every setting that is one value to the visitor, by its key in the file.
template <class Visitor>
void visitFlagsBeforeLists(Visitor&& visit) {
    visit("alwaysOnTop", appSettings.alwaysOnTop);
    visit("launchOnStartup", appSettings.launchOnStartup);
    visit("startMinimized", appSettings.startMinimized);
    visit("hotkeysEnabled", hotkeys.enabled);
    visit("hotkeyLockOn", hotkeys.lockOn);
    visit("stopToolsWithMacro", engine.stopToolsWithMacro);
    visit("disableAnimations", appSettings.disableAnimations);
    visit("showWarnings", appSettings.showWarnings);
}

template <class Visitor>
void visitPlacement(Visitor&& visit) {
    visit("windowX", appSettings.windowX);
    visit("windowY", appSettings.windowY);
    visit("windowWidth", appSettings.windowWidth);
    visit("windowHeight", appSettings.windowHeight);
    visit("windowMaximized", appSettings.windowMaximized);
}

class SettingReader {
  public:
    SettingReader(std::string_view key, std::string_view value) : key_(key), value_(value) {}

    void operator()(std::string_view key, bool& setting) const {
        if (key == key_) setting = value_ == "1";
    }
    void operator()(std::string_view key, std::atomic<bool>& setting) const {
        if (key == key_) setting.exchange(value_ == "1");
    }
    void operator()(std::string_view key, std::int32_t& setting) const {
        if (key != key_) return;
        const auto number = toInt(value_);
        if (!number) return;
        setting = number.value;
        if (&setting == &appSettings.windowX) appSettings.positionSaved = true;
    }

  private:
    std::string_view key_;
    std::string_view value_;
};

class SettingWriter {
  public:
    explicit SettingWriter(std::string& text) : text_(text) {}

    void operator()(std::string_view key, bool setting) { line(key, setting ? "1" : "0"); }
    void operator()(std::string_view key, const std::atomic<bool>& setting) {
        (*this)(key, setting.load());
    }
    void operator()(std::string_view key, std::int32_t setting) {
        line(key, std::to_string(setting));
    }
    void line(std::string_view key, std::string_view value) {
        text_ += key;
        text_ += '=';
        text_ += value;
        text_ += '\n';
    }

  private:
    std::string& text_;
};

void readSet(std::set<std::string>& set, std::string_view value, bool (*wanted)(std::string_view)) {
    set.clear();
    while (const auto item = nextPiece(value, ','))
        if (wanted(*item)) set.emplace(*item);
}

void readLine(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return;
    const auto key = line.substr(0, equals);
    const auto value = line.substr(equals + 1);
    if (key == "seenWarnings") {
        readSet(appSettings.seenWarnings, value, [](std::string_view id) { return !id.empty(); });
    } else if (key == "minimizedPanels") {
        readSet(appSettings.minimizedPanels, value, isPanelId);
    } else if (key == "panelOrder") {
        if (auto order = parsePanelOrder(value)) appSettings.panelOrder = std::move(*order);
    } else {
        const SettingReader reader(key, value);
        visitFlagsBeforeLists(reader);
        visitPlacement(reader);
    }
}

template <class Items>
std::string joined(const Items& items) {
    std::string text;
    for (const auto& item : items) {
        if (!text.empty()) text += ',';
        text += item;
    }
    return text;
}

std::string path() {
    return dataFile("appsettings.txt");
}

// Of the user-interface thread, like everything here.
UnreadFile unreadSettings;

// The lines of the file, all or none: what is read before a failure would be saved as everything.
std::optional<std::vector<std::string>> readAll(const std::string& file) {
    auto reader = openLines(file);
    if (!reader) return std::nullopt;
    std::vector<std::string> lines;
    for (std::string_view line; reader->next(line);)
        lines.emplace_back(line);
    if (reader->failed()) return std::nullopt;
    return lines;
}

// The same, tried again for up to a second while another program, such as a backup, has the file.
std::optional<std::vector<std::string>> readWhenFree(const std::string& file) {
    constexpr std::uint32_t stepMs = 50;
    constexpr int steps = 20;
    auto lines = readAll(file);
    for (int step = 0; !lines && isInUse(file) && step < steps; ++step) {
        platform::sleepMs(stepMs);
        lines = readAll(file);
    }
    return lines;
}

}  // namespace

void loadAppSettings() {
    if (const auto lines = readWhenFree(path())) {
        for (const auto& line : *lines)
            readLine(line);
    } else {
        unreadSettings.note(path(), path() + ".unread");
    }
}

void saveAppSettings() {
    if (savesAreOver.load()) return;
    std::string text;
    SettingWriter writer(text);
    visitFlagsBeforeLists(writer);
    writer.line("seenWarnings", joined(appSettings.seenWarnings));
    writer.line("minimizedPanels", joined(appSettings.minimizedPanels));
    writer.line("panelOrder", joined(appSettings.panelOrder));
    visitPlacement(writer);
    if (unreadSettings.keepCopy()) writeTextFile(path(), text);
}

}  // namespace ravelin
