// Repeats: the same kind of press several times within a time window.
#pragma once

#include <vector>

#include "scanner/key_stream.h"
#include "scanner/predicates.h"
#include "scanner/seq_result.h"

namespace MacroScan {

// The first of the presses satisfying the predicate from which `count` of them in list order span
// at most `windowSec` seconds, bound included; atSec is its time. A count below 1 never matches.
//
// Work: each press is put to the predicate twice at most, and times are compared once for each
// press that satisfies it.
SeqResult MatchRepeated(const std::vector<KeyEv>& keys, const KeyPredicate& predicate, int count,
                        double windowSec);

}  // namespace MacroScan
