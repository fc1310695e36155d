// Ordered sequences: presses that satisfy one step after the other, with any others between them.
#pragma once

#include <vector>

#include "scanner/key_stream.h"
#include "scanner/predicates.h"
#include "scanner/seq_result.h"

namespace MacroScan {

// The first place from which every step is satisfied in order, each by a later press than the step
// before it, however long that takes; atSec is the time of the press that satisfied step 0. An
// empty sequence is never matched.
//
// Work: every press is put to one step at most. A search may start at most 500 times, and one start
// is enough: what lies behind a later start also lies behind the first one, so where the first
// finds no way through, no later one does. A first step that recurs without end costs nothing
// extra.
SeqResult MatchSequence(const std::vector<KeyEv>& keys, const std::vector<KeyPredicate>& steps);

}  // namespace MacroScan
