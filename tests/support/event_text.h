// Events as texts in memory.
#pragma once

#include <string>

#include "persistence/event_line.h"

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

}  // namespace ravelin::test
