#include "app/saved_state.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

using Json = nlohmann::json;

constexpr std::string_view currentPrefix = "CURRENT:";
constexpr std::string_view profilePrefix = "PROFILE:";
constexpr std::string_view profileSettingsPrefix = "PROFILESETTINGS:";
constexpr std::size_t profileFieldCount = 20;
// The status is a few hundred bytes; a file far longer is none.
constexpr std::size_t longestStatus = std::size_t{64} * 1024;

// Every field begins with a number, as a list of key codes does; an empty list is empty.
bool holdsNumbers(std::string_view line, std::size_t count) {
    std::array<std::string_view, sessionFieldCount> places;
    const auto fields = splitInto(places, line, ',');
    const auto startsWithNumber = [](std::string_view field) {
        return field.empty() || toDouble(field);
    };
    return fields.size() >= count && std::all_of(fields.begin(), fields.end(), startsWithNumber);
}

// Goes to the line behind the current profile's name.
bool findProfile(LineReader& lines, std::int32_t current) {
    std::string_view line;
    for (std::int32_t at = -1; lines.next(line);)
        if (line.starts_with(profilePrefix) && ++at == current) return true;
    return false;
}

std::string readText(const std::string& path) {
    std::ifstream file(path);
    std::string text;
    for (std::istreambuf_iterator<char> at(file), end; at != end && text.size() <= longestStatus;
         ++at)
        text += *at;
    return text;
}

}  // namespace

bool isWholeStatus(std::string_view text) {
    if (text.size() > longestStatus) return false;
    const Json status = Json::parse(text, nullptr, false);
    if (!status.is_object()) return false;
    const auto is = [&](const char* key, Json::value_t type) {
        const auto found = status.find(key);
        return found != status.end() && found->type() == type;
    };
    return is("state", Json::value_t::string) && is("autoClicking", Json::value_t::boolean) &&
           is("keySpamming", Json::value_t::boolean) && is("keySpamTargets", Json::value_t::array);
}

std::optional<SavedLines> readSavedLines(LineReader& lines) {
    SavedLines saved;
    std::string_view line;
    if (!lines.next(line) || !line.starts_with(settingsPrefix)) return std::nullopt;
    saved.session = line.substr(settingsPrefix.size());
    if (!holdsNumbers(saved.session, sessionFieldCount)) return std::nullopt;
    if (!lines.next(line) || !line.starts_with(currentPrefix)) return std::nullopt;
    const auto current = toInt(line.substr(currentPrefix.size()));
    if (!current || !findProfile(lines, current.value)) return std::nullopt;
    if (!lines.next(line) || !line.starts_with(profileSettingsPrefix)) return saved;
    saved.profile = line.substr(profileSettingsPrefix.size());
    if (!holdsNumbers(saved.profile, profileFieldCount) || !lines.endsWithLineFeed())
        return std::nullopt;
    return saved;
}

std::string SavedStatus::read() {
    std::string text = readText(path_);
    if (isWholeStatus(text)) last_ = std::move(text);
    return last_;
}

std::string SavedSettings::read() {
    const auto stamp = fileStamp(path_);
    if (!stamp || stamp == stamp_) return last_;
    auto lines = openLines(path_);
    const auto saved = lines ? readSavedLines(*lines) : std::nullopt;
    if (!saved) return last_;
    applySessionSettings(saved->session);
    if (!saved->profile.empty()) applyToolSettings(saved->profile);
    // A file that changed while it was read has another stamp by now, and is read again.
    stamp_ = stamp;
    last_ = getSettings();
    return last_;
}

}  // namespace ravelin
