#include "scanner/detectors.h"

#include <utility>

#include "scanner/chord_answers.h"
#include "scanner/predicates.h"
#include "scanner/repeats.h"
#include "scanner/sequence.h"
#include "scanner/typing_burst.h"

namespace MacroScan {
namespace {

using enum ModFamily;

// Virtual-key codes; a letter's code is its upper-case character.
constexpr int keyBackspace = 8;
constexpr int keyTab = 9;
constexpr int keyEnter = 13;
constexpr int keyEsc = 27;
constexpr int keyPrintScreen = 44;
constexpr int keyDelete = 46;
constexpr int keyF4 = 115;
constexpr int keyF6 = 117;

// An Enter later than this after the start of a typing burst no longer belongs to it.
constexpr double burstToEnterSec = 10.0;

Detector sequence(std::vector<KeyPredicate> steps) {
    return [steps = std::move(steps)](const std::vector<KeyEv>& keys) {
        return MatchSequence(keys, steps);
    };
}

Detector repeated(KeyPredicate predicate, int count, double windowSec) {
    return [predicate = std::move(predicate), count, windowSec](const std::vector<KeyEv>& keys) {
        return MatchRepeated(keys, predicate, count, windowSec);
    };
}

// The second counts only where the first finds nothing, even if its pattern begins earlier.
Detector orElse(Detector first, Detector second) {
    return [first = std::move(first), second = std::move(second)](const std::vector<KeyEv>& keys) {
        const SeqResult found = first(keys);
        return found.matched ? found : second(keys);
    };
}

KeyPredicate copyOrCut() {
    return AnyOf({Combo({Ctrl}, 'C'), Combo({Ctrl}, 'X')});
}
KeyPredicate paste() {
    return Combo({Ctrl}, 'V');
}
KeyPredicate selectAll() {
    return Combo({Ctrl}, 'A');
}
KeyPredicate plain(int key) {
    return Combo({}, key);
}

}  // namespace

Detector runCommand() {
    return sequence({Combo({Win}, 'R'), IsTypingKey, plain(keyEnter)});
}

Detector adminApprove() {
    const KeyPredicate approve = AnyOf({Combo({Ctrl, Shift}, keyEnter), Combo({Alt}, 'Y')});
    return orElse(sequence({Combo({Win}, 'R'), approve}),
                  sequence({IsBareWin, IsTypingKey, approve}));
}

Detector powerMenu() {
    return sequence({Combo({Win}, 'X'), AnyOf({plain('I'), plain('A'), plain('T'), plain('G')})});
}

Detector startLaunch() {
    return sequence({IsBareWin, IsTypingKey, plain(keyEnter)});
}

Detector copyPasteSend() {
    return sequence({copyOrCut(), paste(), plain(keyEnter)});
}

Detector screenshotPaste() {
    return sequence(
        {AnyOf({plain(keyPrintScreen), Combo({Win, Shift}, 'S'), Combo({Alt}, keyPrintScreen)}),
         paste()});
}

Detector selectAllDelete() {
    return sequence({selectAll(), AnyOf({plain(keyDelete), plain(keyBackspace)})});
}

Detector permanentDelete() {
    return sequence({Combo({Shift}, keyDelete)});
}

Detector wipeAndSave() {
    return sequence({selectAll(), AnyOf({plain(keyDelete), plain(keyBackspace), IsTypingKey}),
                     Combo({Ctrl}, 'S')});
}

Detector openAddress() {
    return sequence({AnyOf({Combo({Ctrl}, 'L'), plain(keyF6)}), IsTypingKey, plain(keyEnter)});
}

Detector copyPaste() {
    return sequence({copyOrCut(), paste()});
}

Detector typeAndSend() {
    return [enter = plain(keyEnter)](const std::vector<KeyEv>& keys) -> SeqResult {
        const TypingBurst burst = FindTypingBurst(keys);
        if (!burst.found) return {};
        ChordAnswers isEnter(enter);
        for (auto i = burst.endIndex + 1; i < keys.size(); ++i) {
            if (keys[i].ev->time - burst.atSec > burstToEnterSec) return {};
            if (isEnter(keys[i])) return {true, burst.atSec};
        }
        return {};
    };
}

Detector closeWindows() {
    return repeated(AnyOf({Combo({Alt}, keyF4), Combo({Ctrl}, 'W')}), 2, 30.0);
}

Detector taskManager() {
    return sequence({AnyOf({Combo({Ctrl, Shift}, keyEsc), Combo({Ctrl, Alt}, keyDelete)})});
}

Detector switchWindows() {
    return repeated(Combo({Alt}, keyTab), 3, 10.0);
}

Detector systemKeys() {
    return sequence({[](const ravelin::UnifiedEvent& event, const HeldMods& mods) {
        return mods.win && FamilyOf(static_cast<int>(event.vk)) == None;
    }});
}

}  // namespace MacroScan
