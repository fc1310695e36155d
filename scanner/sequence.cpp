#include "scanner/sequence.h"

#include <algorithm>
#include <functional>

#include "scanner/chord_answers.h"

namespace MacroScan {

SeqResult MatchSequence(const std::vector<KeyEv>& keys, const std::vector<KeyPredicate>& steps) {
    if (steps.empty()) return {};
    double atSec = 0.0;
    auto next = keys.begin();
    for (const KeyPredicate& step : steps) {
        ChordAnswers satisfies(step);
        const auto found = std::find_if(next, keys.end(), std::ref(satisfies));
        if (found == keys.end()) return {};
        if (&step == &steps.front()) atSec = found->ev->time;
        next = found + 1;
    }
    return {true, atSec};
}

}  // namespace MacroScan
