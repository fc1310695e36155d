#include "persistence/session_text.h"

#include <string_view>

#include "persistence/event_line.h"
#include "persistence/session_settings.h"
#include "support/block_writer.h"
#include "support/number_text.h"
#include "support/text_file.h"

namespace ravelin {
namespace {

constexpr std::string_view currentPrefix = "CURRENT:";
constexpr std::string_view profilePrefix = "PROFILE:";
constexpr std::string_view profileSettingsPrefix = "PROFILESETTINGS:";

void writeLine(BlockWriter& out, std::string_view prefix, std::string_view rest) {
    out.append(prefix);
    out.append(rest);
    out.append(lineEnd);
}

// Takes the prefix off the line, if the line begins with it.
bool takePrefix(std::string_view& line, std::string_view prefix) {
    if (!line.starts_with(prefix)) return false;
    line.remove_prefix(prefix.size());
    return true;
}

void readProfiles(LineReader& lines, std::vector<Profile>& profiles) {
    std::string_view line;
    while (lines.next(line)) {
        if (takePrefix(line, profilePrefix)) {
            profiles.push_back(Profile{std::string(line), {}, {}});
        } else if (profiles.empty()) {
            continue;
        } else if (takePrefix(line, profileSettingsPrefix)) {
            profiles.back().settingsLine = line;
        } else {
            appendEvent(profiles.back().events, line);
        }
    }
}

}  // namespace

std::string sessionText(const Session& session) {
    std::string text;
    std::size_t events = 0;
    for (const auto& profile : session.profiles)
        events += profile.events.size();
    // About the length of the lines; growing a text of many megabytes would copy it again and
    // again.
    constexpr std::size_t usualEventLine = 30;
    text.reserve(events * usualEventLine + 1024);
    BlockWriter out([&text](std::string_view block) {
        text += block;
        return true;
    });
    writeLine(out, settingsPrefix, session.settingsLine);
    writeLine(out, currentPrefix, std::to_string(session.current));
    for (const auto& profile : session.profiles) {
        writeLine(out, profilePrefix, profile.name);
        if (!profile.settingsLine.empty())
            writeLine(out, profileSettingsPrefix, profile.settingsLine);
        writeEvents(out, profile.events);
    }
    out.finish();
    return text;
}

std::optional<Session> readSession(LineReader& lines) {
    std::string_view line;
    if (!lines.next(line) || !takePrefix(line, settingsPrefix)) return std::nullopt;
    Session session;
    session.settingsLine = line;
    if (lines.next(line) && takePrefix(line, currentPrefix))
        session.current = toInt(line).value;  // 0 when it is no number
    readProfiles(lines, session.profiles);
    return session;
}

}  // namespace ravelin
