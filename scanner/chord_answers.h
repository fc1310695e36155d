// A predicate that is asked about each chord only once.
#pragma once

#include <array>
#include <cstdint>

#include "scanner/key_stream.h"
#include "scanner/predicates.h"

namespace MacroScan {

// Remembers what the predicate, which must outlive it, answered for a chord. A macro repeats a few
// chords over and over, so this turns nearly every predicate call of a search into one table
// look-up that does not even touch the event. Codes above 255 are put to the predicate every time.
class ChordAnswers {
  public:
    explicit ChordAnswers(const KeyPredicate& predicate) : predicate_(predicate) {}

    bool operator()(const KeyEv& key) {
        const Answer known = answers_[key.chord];
        return known == Answer::unknown ? ask(key) : known == Answer::yes;
    }

  private:
    enum class Answer : std::uint8_t { unknown, no, yes };

    bool ask(const KeyEv& key) {
        const bool satisfied = predicate_(*key.ev, key.mods);
        if (key.chord != KeyEv::unnumberedChord) {
            answers_[key.chord] = satisfied ? Answer::yes : Answer::no;
        }
        return satisfied;
    }

    const KeyPredicate& predicate_;
    std::array<Answer, KeyEv::chordCount + 1> answers_{};  // the last stands for unnumbered chords
};

}  // namespace MacroScan
