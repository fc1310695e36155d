// When a low-level hook counts as removed: scripts of what the input thread sees, in milliseconds.
#include "input/hook_watch.h"

#include <gtest/gtest.h>

#include <charconv>
#include <sstream>
#include <string>

namespace ravelin {
namespace {

// Words in order of time:
//   250     the clock moves on to 250 ms
//   input   the session gets input (its time of last input moves on)
//   mouse   the mouse hook is called
//   key     the keyboard hook is called
//   motion  a raw report that tells of motion
//   raw     a raw report without motion
//   away    a window with higher rights, or none, comes to the front; back: an ordinary one does
//   refuse  the system refuses both hooks from here on; accept: it does no more
//   judge   the answer gets one word: "-", "mouse", "keyboard" or "both"
std::string watched(std::string_view script) {
    HookWatch watch;
    HookWatch::Moment moment;
    std::string answer;
    std::istringstream words{std::string(script)};
    for (std::string word; words >> word;) {
        if (word == "input") {
            moment.lastInput = moment.now;
        } else if (word == "mouse") {
            watch.onMouseCall();
        } else if (word == "key") {
            watch.onKeyboardCall();
        } else if (word == "motion") {
            if (watch.wantsRawMouse(moment.now)) watch.onRawMouse(moment.now, true);
        } else if (word == "raw") {
            watch.onRawMouse(moment.now, false);
        } else if (word == "away" || word == "back") {
            moment.inFrontReachable = word == "back";
        } else if (word == "refuse" || word == "accept") {
            moment.mouseMissing = moment.keyboardMissing = word == "refuse";
        } else if (word == "judge") {
            const auto verdict = watch.judge(moment);
            const char* text = verdict.mouse ? "mouse" : "-";
            if (verdict.keyboard) text = verdict.mouse ? "both" : "keyboard";
            answer += answer.empty() ? text : std::string(" ") + text;
        } else {
            moment.now = static_cast<std::uint32_t>(std::stoul(word));
        }
    }
    return answer;
}

struct WatchCase {
    std::string name;
    std::string script;
    std::string expected;
};

void PrintTo(const WatchCase& one, std::ostream* out) {
    *out << one.name;
}

class HookWatchTable : public testing::TestWithParam<WatchCase> {};

TEST_P(HookWatchTable, ProducesExpectedVerdicts) {
    EXPECT_EQ(watched(GetParam().script), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HookWatchTable,
    testing::Values(
        WatchCase{"NothingHappens", "1000 judge 2000 judge 9000 judge", "- - -"},
        WatchCase{"MotionWithoutCalls",
                  "0 input motion 100 input motion 300 input motion 1000 judge", "mouse"},
        WatchCase{"MotionWithCalls",
                  "0 input mouse motion 100 input mouse motion 300 input mouse motion 1000 judge",
                  "-"},
        WatchCase{"TheLastReportComesAfterItsCall",
                  "0 input mouse motion 100 input mouse motion motion 1000 judge 2000 judge",
                  "- -"},
        WatchCase{"AShortBurstProvesNothing",
                  "0 input motion 100 input motion 199 input motion "
                  "1000 judge",
                  "-"},
        WatchCase{"SilenceOverTwoJudgements",
                  "900 input motion 1000 judge 1200 input motion 2000 "
                  "judge",
                  "- mouse"},
        WatchCase{"ACallInBetweenStartsAnew",
                  "0 input motion 300 input mouse motion 400 input motion 1000 judge", "-"},
        WatchCase{"ClicksWithoutMotionProveNothing",
                  "0 input raw 100 input raw 300 input raw 1000 judge", "-"},
        WatchCase{"PutBackOnceInFiveSeconds",
                  "0 input motion 300 input motion 1000 judge 1100 input motion 1400 input motion "
                  "2000 judge 5999 judge 6000 judge",
                  "mouse - - mouse"},
        WatchCase{"AliveAgainAfterIt",
                  "0 input motion 300 input motion 1000 judge 1100 input mouse motion 2000 judge "
                  "7000 judge",
                  "mouse - -"},
        WatchCase{"KeysWithoutCalls", "1000 judge 1500 input 2000 judge 3000 judge",
                  "- - keyboard"},
        WatchCase{"KeysWithCalls", "1000 judge 1500 input key 2000 judge 3000 judge", "- - -"},
        WatchCase{"TheCallComesAMomentAfterTheJudgement",
                  "1000 judge 1999 input 2000 judge 2001 key 3000 judge 4000 judge", "- - - -"},
        WatchCase{"InputBeforeTheFirstJudgementProvesNothing", "500 input 1000 judge 2000 judge",
                  "- -"},
        WatchCase{"TheMouseExplainsTheInput",
                  "1000 judge 1500 input mouse 2000 judge 2500 input raw 3000 judge 4000 judge",
                  "- - - -"},
        WatchCase{"KeysGoOnWithoutCalls",
                  "1000 judge 1500 input 2000 judge 2500 input 3000 judge 3500 input 4000 judge "
                  "8000 judge",
                  "- - keyboard - keyboard"},
        WatchCase{
            "AWindowWithHigherRightsExplainsTheSilence",
            "away 0 input motion 300 input motion 1000 judge 1500 input 2000 judge 3000 judge",
            "- - -"},
        WatchCase{"WhatHappenedInFrontOfItIsForgotten",
                  "away 0 input motion 900 input motion 1000 judge back 1100 input mouse key 2000 "
                  "judge 3000 judge",
                  "- - -"},
        WatchCase{
            "RefusedHooksAreTriedEveryFiveSeconds",
            "refuse 1000 judge 2000 judge 5999 judge 6000 judge accept 7000 judge 12000 judge",
            "both - - both - -"}),
    [](const auto& test) { return test.param.name; });

TEST(HookWatch, ReadsAFewReportsASecond) {
    HookWatch watch;
    int read = 0;
    for (std::uint32_t now = 0; now < 1000; ++now) {
        if (!watch.wantsRawMouse(now)) continue;
        watch.onRawMouse(now, true);
        ++read;
    }
    EXPECT_EQ(read, 20);
}

TEST(HookWatch, KeepsItsTimesThoughTheTickCountWrapsAround) {
    HookWatch watch;
    watch.onRawMouse(0xFFFFFF00, true);
    watch.onRawMouse(0x00000100, true);
    EXPECT_TRUE(watch.judge({.now = 0x00000200}).mouse);
}

}  // namespace
}  // namespace ravelin
