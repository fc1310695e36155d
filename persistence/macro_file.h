// Macro files: one profile on its own. A name, the settings line of a session if it has one, and
// the events.
#pragma once

#include <string>

#include "persistence/profiles.h"
#include "support/line_reader.h"

namespace ravelin {

// Reads a macro file into `out`. Returns an empty text, or what is wrong with the file; `out` is
// unchanged then. Lines that are no events are skipped.
std::string readMacroFile(const std::string& path, Profile& out);
// The same for the file's text.
std::string readMacro(LineReader& lines, Profile& out);

// Writes a profile as a macro file, with its own settings and the recorder options, player options
// and hotkeys of this moment. Returns an empty text, or why it was not written. A name that is
// empty or holds a line break cannot be written.
std::string writeMacroFile(const std::string& path, const Profile& profile);

}  // namespace ravelin
