// The scanner against its naive twin on generated key streams.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "key_script.h"
#include "naive_scanner.h"
#include "scanner/repeats.h"
#include "scanner/scan.h"
#include "scanner/scenarios.h"
#include "scanner/sequence.h"
#include "scanner/typing_burst.h"

namespace MacroScan {
namespace {

using ravelin::EventList;

// Seeded, and drawn with the engine's own numbers alone: the same streams on every system.
class Generator {
  public:
    explicit Generator(std::uint64_t seed) : engine_(seed) {}

    std::size_t below(std::size_t bound) { return engine_() % bound; }

    template <class T>
    const T& oneOf(const std::vector<T>& values) {
        return values[below(values.size())];
    }

    // Keys that scenarios look for, modifiers of all sides, and codes that no keyboard has. Times
    // advance by whole steps so that windows are met exactly; now and then they jump back.
    EventList events(std::size_t length, const std::vector<std::uint32_t>& keys, double step) {
        EventList out;
        double time = 0;
        for (std::size_t i = 0; i < length; ++i) {
            time += step * static_cast<double>(below(4));
            if (below(50) == 0) time -= 3 * step;
            // One draw to a line: compilers differ in the order of a call's arguments.
            const bool press = below(5) < 3;
            auto event = scanner_test::keyEvent(time, oneOf(keys), press);
            if (below(20) == 0) event.kind = static_cast<int>(below(8));
            out.append(event);
        }
        return out;
    }

  private:
    std::mt19937_64 engine_;
};

const std::vector<std::uint32_t> scenarioKeys = {
    8,   9,   13,  27, 44,  46,  115, 117, 'A', 'C', 'G', 'I', 'L', 'R', 'S', 'T',       'V',
    'W', 'X', 'Y', 16, 160, 161, 17,  162, 163, 18,  164, 165, 91,  92,  300, 65536 + 13};
const std::vector<std::uint32_t> fewKeys = {'A', 'B', 'C', 17, 300, 301};

using PredicatePair = std::pair<KeyPredicate, naive::Predicate>;

std::vector<PredicatePair> predicatePairs() {
    using enum ModFamily;
    return {
        {Combo({}, 'A'), naive::chord(0, 'A')},
        {Combo({}, 'B'), naive::chord(0, 'B')},
        {Combo({Ctrl}, 'A'), naive::chord(naive::ctrl, 'A')},
        {Combo({Ctrl}, 'C'), naive::chord(naive::ctrl, 'C')},
        {Combo({}, 300), naive::chord(0, 300)},
        {AnyOf({Combo({}, 'B'), Combo({Ctrl}, 301)}),
         naive::either(naive::chord(0, 'B'), naive::chord(naive::ctrl, 301))},
        {IsTypingKey, naive::typing},
        {IsBareWin, naive::bareWin},
        {Combo({}, 'Z'), naive::chord(0, 'Z')},
    };
}

void expectSame(const SeqResult& actual, const naive::Found& expected) {
    EXPECT_EQ(actual.matched, expected.matched);
    EXPECT_EQ(actual.atSec, expected.atSec);
}

TEST(ScannerProperty, PressesAndHeldModifiersAgree) {
    Generator generate(1);
    for (int round = 0; round < 300; ++round) {
        const EventList events = generate.events(generate.below(60), scenarioKeys, 0.5);
        const auto keys = BuildKeyEvents(events);
        const auto presses = naive::pressesOf(events);
        ASSERT_EQ(keys.size(), presses.size());
        for (std::size_t i = 0; i < keys.size(); ++i) {
            EXPECT_EQ(*keys[i].ev, presses[i].event);
            const int held = presses[i].held;
            EXPECT_EQ(keys[i].mods,
                      (HeldMods{(held & naive::ctrl) != 0, (held & naive::alt) != 0,
                                (held & naive::shift) != 0, (held & naive::win) != 0}));
        }
    }
}

TEST(ScannerProperty, SequencesAgree) {
    Generator generate(2);
    const auto pairs = predicatePairs();
    for (int round = 0; round < 3000; ++round) {
        const EventList events = generate.events(generate.below(40), fewKeys, 1.0);
        std::vector<KeyPredicate> steps;
        std::vector<naive::Predicate> naiveSteps;
        for (std::size_t i = 1 + generate.below(4); i > 0; --i) {
            const auto& [step, naiveStep] = generate.oneOf(pairs);
            steps.push_back(step);
            naiveSteps.push_back(naiveStep);
        }
        expectSame(MatchSequence(BuildKeyEvents(events), steps),
                   naive::sequence(naive::pressesOf(events), naiveSteps));
    }
}

TEST(ScannerProperty, SequencesWithHundredsOfStartsAgree) {
    Generator generate(3);
    for (int round = 0; round < 40; ++round) {
        EventList events = generate.events(2000, {'A', 'C'}, 1.0);
        if (generate.below(2) == 0) events.append(scanner_test::keyEvent(9999, 'B', true));
        expectSame(MatchSequence(BuildKeyEvents(events), {Combo({}, 'A'), Combo({}, 'B')}),
                   naive::sequence(naive::pressesOf(events),
                                   {naive::chord(0, 'A'), naive::chord(0, 'B')}));
    }
}

TEST(ScannerProperty, RepeatsAgree) {
    Generator generate(4);
    const auto pairs = predicatePairs();
    for (int round = 0; round < 3000; ++round) {
        const EventList events = generate.events(generate.below(60), fewKeys, 0.5);
        const auto& [predicate, naivePredicate] = generate.oneOf(pairs);
        const std::size_t count = 1 + generate.below(6);
        const double windowSec = static_cast<double>(generate.below(12)) - 1.0;
        expectSame(
            MatchRepeated(BuildKeyEvents(events), predicate, static_cast<int>(count), windowSec),
            naive::repeated(naive::pressesOf(events), naivePredicate, count, windowSec));
    }
}

TEST(ScannerProperty, TypingBurstsAgree) {
    Generator generate(5);
    int found = 0;
    for (int round = 0; round < 3000; ++round) {
        const EventList events = generate.events(generate.below(80), fewKeys, 0.25);
        const TypingBurst actual = FindTypingBurst(BuildKeyEvents(events));
        const naive::Burst expected = naive::typingBurst(naive::pressesOf(events));
        EXPECT_EQ(actual.found, expected.found);
        EXPECT_EQ(actual.atSec, expected.atSec);
        EXPECT_EQ(actual.endIndex, expected.endIndex);
        found += actual.found ? 1 : 0;
    }
    EXPECT_GT(found, 100);
    EXPECT_LT(found, 2900);
}

// A word of a macro: a chord of a scenario, a typed letter or a bare modifier.
const std::vector<std::string> words = {"Win",
                                        "Win+R",
                                        "Win+X",
                                        "Win+E",
                                        "Win+Shift+S",
                                        "Ctrl+A",
                                        "Ctrl+C",
                                        "Ctrl+V",
                                        "Ctrl+X",
                                        "Ctrl+S",
                                        "Ctrl+L",
                                        "Ctrl+W",
                                        "Ctrl+Shift+Esc",
                                        "Ctrl+Alt+Delete",
                                        "Alt+F4",
                                        "Alt+Y",
                                        "PrtSc",
                                        "Alt+Tab",
                                        "Alt+Tab",
                                        "Ctrl+Shift+Enter",
                                        "Alt+PrtSc",
                                        "Shift+Delete",
                                        "Delete",
                                        "Backspace",
                                        "F6",
                                        "Enter",
                                        "a",
                                        "b",
                                        "i",
                                        "t",
                                        ">Ctrl",
                                        "<Ctrl",
                                        ">Win",
                                        "<Win",
                                        ">Alt",
                                        "<Alt",
                                        "a@0",
                                        "b@2"};

TEST(ScannerProperty, WholeScansAgree) {
    Generator generate(6);
    std::set<std::string> seen;
    for (int round = 0; round < 6000; ++round) {
        EventList events;
        if (round % 3 == 0) {
            events = generate.events(generate.below(200), scenarioKeys, 0.25);
        } else {
            std::string text;
            for (std::size_t i = generate.below(14); i > 0; --i)
                text += generate.oneOf(words) + " ";
            events = scanner_test::script(
                text, generate.oneOf<scanner_test::Side>(
                          {std::begin(scanner_test::allSides), std::end(scanner_test::allSides)}));
        }
        const ScanResult result = Scan(events);
        std::vector<std::pair<std::string, double>> actual;
        bool danger = false;
        for (std::size_t i = 0; i < result.matches.size(); ++i) {
            const Match& match = result.matches[i];
            actual.emplace_back(match.id, match.atSec);
            seen.insert(match.id);
            danger = danger || match.severity == "DANGER";
            if (i == 0) continue;
            const Match& before = result.matches[i - 1];
            EXPECT_TRUE(before.severity == match.severity ? before.atSec <= match.atSec
                                                          : before.severity == "DANGER");
        }
        std::ranges::sort(actual);
        EXPECT_EQ(actual, naive::scan(events));
        EXPECT_EQ(result.level, actual.empty() ? "none" : danger ? "danger" : "caution");
    }
    EXPECT_EQ(seen.size(), Scenarios().size()) << "a scenario was never generated";
}

}  // namespace
}  // namespace MacroScan
