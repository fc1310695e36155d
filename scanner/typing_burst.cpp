#include "scanner/typing_burst.h"

#include <array>

#include "scanner/chord_answers.h"
#include "scanner/predicates.h"

namespace MacroScan {
namespace {

constexpr std::size_t burstKeys = 8;
constexpr double burstSec = 5.0;

}  // namespace

TypingBurst FindTypingBurst(const std::vector<KeyEv>& keys) {
    std::array<double, burstKeys>
        recent{};  // times of the last typing keys, oldest overwritten first
    std::size_t typed = 0;
    const KeyPredicate typingKey = IsTypingKey;
    ChordAnswers isTypingKey(typingKey);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!isTypingKey(keys[i])) continue;
        const double time = keys[i].ev->time;
        recent[typed++ % burstKeys] = time;
        const double first = recent[typed % burstKeys];
        if (typed >= burstKeys && time - first <= burstSec) return {true, first, i};
    }
    return {};
}

}  // namespace MacroScan
