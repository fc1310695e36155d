// Key predicates: what a single key press can be asked.
#pragma once

#include <functional>
#include <initializer_list>
#include <vector>

#include "input/unified_event.h"
#include "scanner/modifiers.h"

namespace MacroScan {

// Whether a press, given the modifiers held just before it, is the one looked for. The answer
// depends on nothing but the key code and those modifiers: searches ask once and remember it.
using KeyPredicate = std::function<bool(const ravelin::UnifiedEvent&, const HeldMods&)>;

// True for exactly this chord: the key pressed while these families and no others are held. With no
// family it is the plain key.
KeyPredicate Combo(std::initializer_list<ModFamily> families, int key);

// True when any alternative is, tried in order up to the first that is; never true without one.
KeyPredicate AnyOf(std::vector<KeyPredicate> alternatives);

// A key that types text (digit, letter, Space, keypad digit or punctuation) without Ctrl, Alt and
// Win; Shift may be held.
bool IsTypingKey(const ravelin::UnifiedEvent& event, const HeldMods& mods);

// A Windows key without Ctrl, Alt and Shift. The other Windows key may be down.
bool IsBareWin(const ravelin::UnifiedEvent& event, const HeldMods& mods);

}  // namespace MacroScan
