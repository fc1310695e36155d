// Plain and slow readers of events, macro files and session files: line by line through streams,
// each field through its standard conversion. What the program's own readers are measured against.
#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "persistence/macro_settings.h"
#include "persistence/session_text.h"
#include "tests/support/standard_conversions.h"

namespace ravelin::test {

inline std::vector<std::string> referenceLines(const std::string& bytes, LoneReturn loneReturn) {
    std::istringstream stream(bytes);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        const bool lone = stream.eof() && loneReturn == LoneReturn::kept;
        if (!line.empty() && line.back() == '\r' && !lone) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

inline std::optional<UnifiedEvent> referenceEvent(const std::string& line) {
    std::istringstream stream(line);
    std::string fields[8];
    for (auto& field : fields)
        std::getline(stream, field, ',');
    const auto kind = standardInt(fields[0]);
    const auto time = standardDouble(fields[1]);
    const auto x = standardInt(fields[2]);
    const auto y = standardInt(fields[3]);
    const auto flags = standardUnsignedLong(fields[4]);
    const auto vk = standardInt(fields[5]);
    const auto down = standardInt(fields[6]);
    const auto wheel = standardInt(fields[7]);
    if (!kind || !time || !x || !y || !flags || !vk || !down || !wheel) return std::nullopt;
    UnifiedEvent event;
    event.kind = kind.value;
    event.time = time.value;
    event.x = x.value;
    event.y = y.value;
    event.flags = flags.value;
    event.vk = static_cast<std::uint32_t>(vk.value);
    event.down = down.value != 0 ? 1 : 0;
    event.wheel = wheel.value;
    return event;
}

inline bool beginsWith(const std::string& line, const std::string& prefix) {
    return line.compare(0, prefix.size(), prefix) == 0;
}

// The error text, empty on success.
inline std::string referenceMacro(const std::string& bytes, Profile& out) {
    const auto lines = referenceLines(bytes, LoneReturn::removed);
    if (lines.empty() || lines[0].empty()) return "That macro file is missing its profile name.";
    out = Profile{lines[0], captureToolSettings(), {}};
    std::size_t first = 1;
    if (lines.size() > 1 && beginsWith(lines[1], "SETTINGS:")) {
        out.settingsLine = macroSettingsToProfileLine(lines[1].substr(9));
        first = 2;
    }
    for (std::size_t i = first; i < lines.size(); ++i)
        if (const auto event = referenceEvent(lines[i])) out.events.append(*event);
    return "";
}

inline std::optional<Session> referenceSession(const std::string& bytes) {
    const auto lines = referenceLines(bytes, LoneReturn::kept);
    if (lines.empty() || !beginsWith(lines[0], "SETTINGS:")) return std::nullopt;
    Session session;
    session.settingsLine = lines[0].substr(9);
    if (lines.size() > 1 && beginsWith(lines[1], "CURRENT:"))
        session.current = standardInt(lines[1].substr(8)).value;
    for (std::size_t i = 2; i < lines.size(); ++i) {
        if (beginsWith(lines[i], "PROFILE:")) {
            session.profiles.push_back(Profile{lines[i].substr(8), {}, {}});
        } else if (!session.profiles.empty() && beginsWith(lines[i], "PROFILESETTINGS:")) {
            session.profiles.back().settingsLine = lines[i].substr(16);
        } else if (!session.profiles.empty()) {
            if (const auto event = referenceEvent(lines[i]))
                session.profiles.back().events.append(*event);
        }
    }
    return session;
}

// Equal field by field, a NaN being equal to a NaN.
inline bool sameEvent(UnifiedEvent a, UnifiedEvent b) {
    if (std::isnan(a.time) && std::isnan(b.time)) a.time = b.time = 0;
    return a == b && std::signbit(a.time) == std::signbit(b.time);
}

inline bool sameEvents(const EventList& a, const EventList& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!sameEvent(a[i], b[i])) return false;
    return true;
}

inline bool sameProfile(const Profile& a, const Profile& b) {
    return a.name == b.name && a.settingsLine == b.settingsLine && sameEvents(a.events, b.events);
}

}  // namespace ravelin::test
