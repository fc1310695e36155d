// Typing bursts: text typed at the pace of words rather than of single keys.
#pragma once

#include <cstdint>
#include <vector>

#include "scanner/key_stream.h"

namespace MacroScan {

struct TypingBurst {
    bool found = false;
    double atSec = 0.0;          // time of the burst's first key
    std::uint64_t endIndex = 0;  // index of the burst's last key in the list of presses
};

// The first eight typing keys in list order that span at most five seconds, bound included; other
// presses may lie between them. Only this first burst is ever reported.
//
// Work: one look at each press up to the end of the burst.
TypingBurst FindTypingBurst(const std::vector<KeyEv>& keys);

}  // namespace MacroScan
