#include "persistence/macro_file.h"

#include <algorithm>
#include <utility>

#include "persistence/event_line.h"
#include "persistence/macro_settings.h"
#include "persistence/session_settings.h"
#include "support/block_writer.h"
#include "support/text_file.h"

namespace ravelin {

std::string readMacro(LineReader& lines, Profile& out) {
    std::string_view line;
    if (!lines.next(line) || line.empty()) return "That macro file is missing its profile name.";
    Profile profile{std::string(line), captureToolSettings(), {}};
    bool more = lines.next(line);
    if (more && line.starts_with(settingsPrefix)) {
        profile.settingsLine = macroSettingsToProfileLine(line.substr(settingsPrefix.size()));
        more = lines.next(line);
    }
    for (; more; more = lines.next(line))
        appendEvent(profile.events, line);
    out = std::move(profile);
    return {};
}

std::string readMacroFile(const std::string& path, Profile& out) {
    auto lines = openLines(path, LoneReturn::removed);
    Profile profile;
    const std::string problem = lines ? readMacro(*lines, profile) : "";
    if (!lines || lines->failed()) return "Couldn't open that macro file.";
    if (problem.empty()) out = std::move(profile);
    return problem;
}

std::string writeMacroFile(const std::string& path, const Profile& profile) {
    if (profile.name.empty() || profile.name.find('\n') != std::string::npos)
        return "That profile's name can't be written to a macro file.";
    const bool written = writeInBlocks(path, [&profile](BlockWriter& out) {
        out.append(profile.name);
        out.append(lineEnd);
        out.append(settingsPrefix);
        out.append(profileToSessionLine(profile.settingsLine));
        out.append(lineEnd);
        writeEvents(out, profile.events);
    });
    return written ? "" : "Couldn't write that macro file.";
}

}  // namespace ravelin
