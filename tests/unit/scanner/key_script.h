// Key presses written down the way people speak of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/event_list.h"
#include "scanner/scan.h"

namespace scanner_test {

ravelin::UnifiedEvent keyEvent(double time, std::uint32_t vk, bool down);

// Which codes stand for Ctrl, Alt, Shift and Win; Windows has no generic code for Win.
enum class Side { generic, left, right };
inline constexpr Side allSides[] = {Side::generic, Side::left, Side::right};

// The events of a script such as "Win+R a Enter@2.5": chords separated by blanks, each with an
// optional time. Without one, a chord comes one second after the chord before it; the first is at
// 0. The events of a chord share its time: modifiers go down in order, then the key goes down and
// up, and the modifiers go up in reverse order. A modifier alone is a press and a release of it;
// ">Ctrl" is a press and "<Ctrl" a release alone.
ravelin::EventList script(std::string_view text, Side side = Side::generic);

// The findings as "id@time id@time", in order; empty when there are none.
std::string findings(const ravelin::EventList& events);

// Expects these findings whichever side the modifiers are on.
void expectFindings(std::string_view text, std::string_view expected);

}  // namespace scanner_test
