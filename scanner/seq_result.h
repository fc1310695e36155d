// What every search and every detector answers.
#pragma once

namespace MacroScan {

struct SeqResult {
    bool matched = false;
    double atSec = 0.0;  // time of the event at which the pattern begins; 0 when not matched
};

}  // namespace MacroScan
