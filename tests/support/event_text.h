// Events and sessions as texts in memory.
#pragma once

#include <string>

#include "persistence/event_line.h"
#include "persistence/session_text.h"

namespace ravelin::test {

// The line and its end.
inline std::string eventLine(const UnifiedEvent& event) {
    // Filled with what a line never holds, and a guard behind the room that may be overwritten.
    std::string text(eventLineRoom + 1, '#');
    const auto* const end = writeEventLine(text.data(), event);
    if (text.back() != '#') return "more was overwritten than the room of a line";
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

inline std::string sessionText(const Session& session) {
    std::string text;
    BlockWriter out([&text](std::string_view block) {
        text += block;
        return true;
    });
    writeSession(out, session);
    out.finish();
    return text;
}

}  // namespace ravelin::test
