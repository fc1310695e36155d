#include "input/key_spammer.h"

#include <gmock/gmock.h>

#include <map>

#include "input/capture.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"

namespace ravelin::test {
namespace {

using platform::Event;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr std::uint32_t keyA = 65;
constexpr std::uint32_t keyB = 66;
constexpr std::uint32_t keyC = 67;
constexpr std::uint32_t leftArrow = 37;
constexpr std::uint32_t leftCtrl = 162;

class KeySpammer : public EngineTest {
  protected:
    KeySpammer() { passOnEverySignal(); }

    static void setTargets(std::initializer_list<std::uint32_t> keys) {
        std::size_t i = 0;
        for (const std::uint32_t key : keys)
            keySpamTargets.keys[i++] = key;
        keySpamTargets.count = static_cast<std::int32_t>(i);
        if (i > 0) keySpamTargets.first = *keys.begin();
    }
    static std::vector<std::uint32_t> targets() {
        std::vector<std::uint32_t> keys;
        for (std::int32_t i = 0; i < keySpamTargets.count; ++i)
            keys.push_back(keySpamTargets.keys[static_cast<std::size_t>(i)]);
        return keys;
    }
    static void stopAfterRounds(std::int32_t rounds) {
        toolSettings.ksRptMode = 0;
        toolSettings.ksRptTimes = rounds;
    }
    // The log as one word a record: "A" for a press, "a" for a release.
    static std::string letters() {
        std::string text;
        for (const Sent& sent : desktop.log) {
            const auto key = static_cast<char>(std::stoi(sent.text.substr(4)));
            text += sent.text.ends_with("down") ? key : static_cast<char>(key - 'A' + 'a');
        }
        return text;
    }
};

TEST_F(KeySpammer, PressesAtOnceAndThenOnceAnInterval) {
    toolSettings.ksms = 40;
    requestAt(1, requests.keySpamStart);
    quitAt(1.1);
    runKeySpammer();
    EXPECT_EQ(desktop.texts(), (Texts{"key 32 down", "key 32 up", "key 32 down", "key 32 up",
                                      "key 32 down", "key 32 up"}));
    EXPECT_THAT(milliseconds(desktop.times()), ElementsAre(1000, 1000, 1040, 1040, 1080, 1080));
}

TEST_F(KeySpammer, TakesTurnsAndReleasesEveryTargetAtItsCount) {
    setTargets({keyA, keyB, keyC});
    stopAfterRounds(4);
    requestAt(0, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaBbCcAaabc");
    EXPECT_FALSE(engine.keySpamming.load());
    EXPECT_EQ(engine.pressCount.load(), 0);
}

TEST_F(KeySpammer, GoesOnWithTheNextTargetAfterAStop) {
    setTargets({keyA, keyB, keyC});
    toolSettings.kss = 1;
    requestAt(0, requests.keySpamStart);
    requestAt(0.5, requests.keySpamStop);
    requestAt(5, requests.keySpamStart);
    quitAt(5.5);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaabcBb");
}

TEST_F(KeySpammer, StartsTheTurnAgainWhenTheListHasBecomeShorter) {
    setTargets({keyA, keyB, keyC});
    toolSettings.kss = 1;
    toolSettings.ksms = 0;
    requestAt(0, requests.keySpamStart);
    desktop.at(1.5, [] {  // C would be next
        removeKeySpamTarget("2");
        removeKeySpamTarget("1");
    });
    quitAt(2.5);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaBbAa");
}

TEST_F(KeySpammer, ReleasesWhatItPressedWhateverHappensToTheListMeanwhile) {
    struct Change {
        const char* name;
        void (*make)();
    };
    static constexpr Change changes[] = {
        {"first removed", [] { removeKeySpamTarget("0"); }},
        {"last removed", [] { removeKeySpamTarget("2"); }},
        {"all replaced",
         [] { applyToolSettings("0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,88,88|89,1"); }},
        {"cleared", [] { clearProfile(); }},
        {"chord off", [] { setKeySpamChordMode("0"); }},
    };
    for (const bool chord : {false, true})
        for (const Change& change : changes)
            for (std::size_t at = 0; at < (chord ? 6U : 2U); ++at) {
                resetEngine();
                passOnEverySignal();
                setTargets({keyA, keyB, keyC});
                keySpamTargets.chord = chord;
                toolSettings.kss = 1;
                requestAt(0, requests.keySpamStart);
                desktop.onSend = [&](const Sent&) {
                    if (desktop.log.size() == at + 1) change.make();
                };
                requestAt(0.5, requests.keySpamStop);
                runKeySpammer();
                std::map<std::string, int> down;
                for (const Sent& sent : desktop.log)
                    down[sent.text.substr(0, sent.text.find(' ', 4))] =
                        sent.text.ends_with("down") ? 1 : 0;
                for (const auto& [key, held] : down)
                    EXPECT_EQ(held, 0) << key << ", " << change.name << " after record " << at
                                       << (chord ? " of a chord" : " of a turn");
            }
}

TEST_F(KeySpammer, StartsTheTurnAgainWhenTheListWasShorterDuringAChord) {
    setTargets({keyA, keyB, keyC});
    toolSettings.kss = 1;
    toolSettings.ksms = 0;
    requestAt(0, requests.keySpamStart);
    desktop.at(1.5, [] {  // C would be next
        keySpamTargets.count = 2;
        keySpamTargets.chord = true;
    });
    desktop.at(2.5, [] {
        keySpamTargets.count = 3;
        keySpamTargets.chord = false;
    });
    quitAt(3.5);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaBbABabAa");
}

TEST_F(KeySpammer, PressesAChordTogether) {
    setTargets({leftCtrl, keyC});
    setKeySpamChordMode("1");
    stopAfterRounds(2);
    requestAt(0, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(desktop.texts(),
              (Texts{"key 162 down", "key 67 down", "key 162 up", "key 67 up", "key 162 down",
                     "key 67 down", "key 162 up", "key 67 up", "key 162 up", "key 67 up"}));
    EXPECT_THAT(milliseconds(desktop.times()), ElementsAre(0, 0, 0, 0, 5, 5, 5, 5, 10, 10));
}

TEST_F(KeySpammer, KeepsTheTurnThroughAChord) {
    setTargets({keyA, keyB});
    toolSettings.kss = 1;
    toolSettings.ksms = 0;
    requestAt(0, requests.keySpamStart);
    desktop.at(0.5, [] { setKeySpamChordMode("1"); });
    desktop.at(1.5, [] { setKeySpamChordMode("0"); });
    quitAt(2.5);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaABabBb");
}

TEST_F(KeySpammer, MarksExtendedTargets) {
    setTargets({leftArrow});
    stopAfterRounds(1);
    requestAt(0, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(desktop.texts(), (Texts{"key 37 ext down", "key 37 ext up", "key 37 ext up"}));
}

TEST_F(KeySpammer, LooksAScanCodeUpOnlyWhenTheKeyOfItsPlaceChanges) {
    setTargets({keyA});
    toolSettings.ksms = 10;
    requestAt(0, requests.keySpamStart);
    desktop.at(0.055, [] { EXPECT_EQ(desktop.scanLookups, 1U); });
    desktop.at(0.056, [] { setTargets({keyB}); });
    desktop.at(0.095, [] { EXPECT_EQ(desktop.scanLookups, 2U); });
    quitAt(0.1);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaAaAaAaAaAaBbBbBbBb");
}

TEST_F(KeySpammer, TakesScanCodesFromTheLayoutOfTheProgramInFrontAndKeepsThem) {
    setTargets({keyA});
    desktop.foregroundLayout = 2;
    toolSettings.ksms = 10;
    requestAt(0, requests.keySpamStart);
    desktop.at(0.015, [] { desktop.foregroundLayout = 4; });
    quitAt(0.025);
    runKeySpammer();
    EXPECT_EQ(letters(), "CcCcCc");
}

TEST_F(KeySpammer, SendsATargetWithoutAScanCodeAsZero) {
    setTargets({7});
    stopAfterRounds(1);
    requestAt(0, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(desktop.texts(), (Texts{"scan 0 down", "scan 0 up", "scan 0 up"}));
}

TEST_F(KeySpammer, StopsBeforeTheFirstRoundWithACountOfZero) {
    setTargets({keyA});
    stopAfterRounds(0);
    requestAt(0, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(letters(), "a");
    EXPECT_FALSE(engine.keySpamming.load());
}

TEST_F(KeySpammer, CountsAnewAfterEveryStart) {
    setTargets({keyA});
    stopAfterRounds(2);
    requestAt(0, requests.keySpamStart);
    requestAt(1, requests.keySpamStart);
    runKeySpammer();
    EXPECT_EQ(letters(), "AaAaaAaAaa");
}

TEST_F(KeySpammer, WakesFromIntervalsOfManyHours) {
    desktop.endOfTime = 1e9;
    toolSettings.ksh = 1000;
    toolSettings.ksms = 0;
    requestAt(0, requests.keySpamStart);
    requestAt(3'600'000 + 10, requests.keySpamStop);
    runKeySpammer();
    EXPECT_THAT(milliseconds(desktop.times()),
                ElementsAre(0, 0, 3'600'000'000, 3'600'000'000, 3'600'010'000));
}

TEST_F(KeySpammer, DoesNotStartWithAnEmptyList) {
    setTargets({});
    requestAt(0, requests.keySpamStart);
    desktop.at(1, [] { feed("F9↓ F9↑"); });
    desktop.at(2, [] { EXPECT_FALSE(engine.keySpamming.load()); });
    runKeySpammer();
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(KeySpammer, GoesIdleWhenItsListRunsEmpty) {
    setTargets({keyA});
    requestAt(0, requests.keySpamStart);
    desktop.at(0.001, [] { keySpamTargets.count = 0; });
    runKeySpammer();
    EXPECT_EQ(letters(), "Aa");
    EXPECT_FALSE(engine.keySpamming.load());
}

TEST_F(KeySpammer, IsToggledByItsHotkeyAndReleasesEveryTarget) {
    setTargets({keyA, keyB});
    toolSettings.kss = 1;
    desktop.at(0, [] { feed("F9↓ F9↑"); });
    desktop.at(0.5, [] { feed("F9↓ F9↑"); });
    runKeySpammer();
    EXPECT_EQ(letters(), "Aaab");
}

TEST_F(KeySpammer, SignalsItsWakeOnEveryToggleEvenWithAnEmptyList) {
    setTargets({});
    postRequest(requests.keySpamToggle);
    EXPECT_FALSE(engine.keySpamming.load());
    EXPECT_TRUE(desktop.isSignalled(Event::keySpamWake));
}

TEST_F(KeySpammer, SendsNoReleaseOnAStopWhileItIsIdle) {
    postRequest(requests.keySpamStop);
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(KeySpammer, EndsAtOnceAtQuit) {
    toolSettings.ksh = 1;
    requestAt(0, requests.keySpamStart);
    quitAt(0.25);
    runKeySpammer();
    EXPECT_NEAR(desktop.now(), 0.25, 1e-4);
}

TEST_F(KeySpammer, AppendsCapturedKeysUpToThree) {
    for (const std::string key : {"A", "A", "B"}) {
        reassignKey("keyspamtarget");
        feed(key + "↓ " + key + "↑");
    }
    EXPECT_THAT(targets(), ElementsAre(32, keyA, keyA));
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32|65|65,0");
}

TEST_F(KeySpammer, AppendsNothingOnEsc) {
    reassignKey("keyspamtarget");
    feed("Esc↓");
    EXPECT_THAT(targets(), ElementsAre(32));
}

TEST_F(KeySpammer, RefreshesTheCopyOfTheFirstTargetWhenTheListGrowsOrShrinks) {
    setTargets({});
    appendKeySpamTarget(keyB);
    EXPECT_EQ(keySpamTargets.first.load(), keyB);
    appendKeySpamTarget(keyC);
    EXPECT_EQ(keySpamTargets.first.load(), keyB);
    removeKeySpamTarget("0");
    EXPECT_EQ(keySpamTargets.first.load(), keyC);
    removeKeySpamTarget("0");
    EXPECT_EQ(keySpamTargets.first.load(), keyC) << "an empty list has no first target to copy";
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,67,,0");
}

TEST_F(KeySpammer, RemovesATargetAndMovesTheLaterOnesDown) {
    setTargets({keyA, keyB, keyC});
    removeKeySpamTarget(" 1 of 3");
    EXPECT_THAT(targets(), ElementsAre(keyA, keyC));
    EXPECT_EQ(profiles[0].settingsLine, "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,65,65|67,0");
}

TEST_F(KeySpammer, RemovesNothingForAnIndexThatIsNone) {
    setTargets({keyA, keyB});
    for (const auto* index : {"2", "-1", "", "x", "4294967296", "2147483648"})
        removeKeySpamTarget(index);
    EXPECT_THAT(targets(), ElementsAre(keyA, keyB));
    EXPECT_EQ(profiles[0].settingsLine, "");
}

TEST_F(KeySpammer, StopsAndReleasesTheKeyWhenItsOnlyTargetIsRemoved) {
    setTargets({keyA});
    toolSettings.kss = 1;
    requestAt(0, requests.keySpamStart);
    desktop.at(0.5, [] {
        removeKeySpamTarget("0");
        EXPECT_FALSE(engine.keySpamming.load());
    });
    runKeySpammer();
    EXPECT_EQ(letters(), "Aaa");
}

TEST_F(KeySpammer, GoesOnWhenOneOfSeveralTargetsIsRemoved) {
    setTargets({keyA, keyB});
    engine.keySpamming = true;
    removeKeySpamTarget("0");
    EXPECT_TRUE(engine.keySpamming.load());
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(KeySpammer, RaisesNoStopForTheOnlyTargetOfAnIdleSpammer) {
    desktop.onCommand = nullptr;
    removeKeySpamTarget("0");
    EXPECT_FALSE(desktop.isSignalled(Event::command));
    EXPECT_THAT(desktop.log, IsEmpty());
}

TEST_F(KeySpammer, PressesChordsOnlyForExactlyOne) {
    for (const auto* text : {"1", "", "1", "01", "1", "1 ", "1", "true", "1", "0"}) {
        setKeySpamChordMode(text);
        EXPECT_EQ(keySpamTargets.chord.load(), std::string(text) == "1") << text;
    }
    setKeySpamChordMode("1");
    EXPECT_TRUE(profiles[0].settingsLine.ends_with(",32,1"));
}

}  // namespace
}  // namespace ravelin::test
