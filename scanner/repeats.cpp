#include "scanner/repeats.h"

#include <algorithm>
#include <functional>

#include "scanner/chord_answers.h"

namespace MacroScan {

SeqResult MatchRepeated(const std::vector<KeyEv>& keys, const KeyPredicate& predicate, int count,
                        double windowSec) {
    if (count < 1) return {};
    ChordAnswers satisfies(predicate);
    const auto nextFrom = [&](auto at) {
        return std::find_if(at, keys.end(), std::ref(satisfies));
    };
    auto first = nextFrom(keys.begin());
    auto last = first;  // the press count - 1 satisfying presses after the first
    for (int i = 1; i < count && last != keys.end(); ++i)
        last = nextFrom(last + 1);
    while (last != keys.end()) {
        if (last->ev->time - first->ev->time <= windowSec) return {true, first->ev->time};
        first = nextFrom(first + 1);
        last = nextFrom(last + 1);
    }
    return {};
}

}  // namespace MacroScan
