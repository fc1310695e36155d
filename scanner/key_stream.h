// The key presses of a macro, each with the modifiers that were held when it happened.
#pragma once

#include <cstdint>
#include <vector>

#include "input/event_list.h"
#include "scanner/modifiers.h"

namespace MacroScan {

// One key press. It refers to the event in the caller's list, which must outlive it unchanged.
struct KeyEv {
    KeyEv(const ravelin::UnifiedEvent& event, const HeldMods& held)
        : ev(&event), mods(held), chord(chordOf(event.vk, held)) {}

    const ravelin::UnifiedEvent* ev;
    HeldMods mods;  // as they were just before this press, so a modifier's own press lacks itself

    // Key code and modifiers as one small number, below `chordCount` and different for every two
    // chords; `unnumberedChord` for a code above 255, which no real key has but a file may hold.
    std::uint16_t chord;

    static constexpr std::uint16_t chordCount = 4096;
    static constexpr std::uint16_t unnumberedChord = chordCount;

  private:
    static std::uint16_t chordOf(std::uint32_t vk, const HeldMods& held) {
        if (vk > 255) return unnumberedChord;
        return static_cast<std::uint16_t>(vk | (held.ctrl ? 256u : 0u) | (held.alt ? 512u : 0u) |
                                          (held.shift ? 1024u : 0u) | (held.win ? 2048u : 0u));
    }
};

// Every key press of the list in list order. Releases only move the held modifiers; events of other
// kinds, unknown ones included, are passed over.
std::vector<KeyEv> BuildKeyEvents(const ravelin::EventList& events);
std::vector<KeyEv> BuildKeyEvents(ravelin::EventList&& events) = delete;  // would dangle

}  // namespace MacroScan
