// Two threads at work on the same macro: whatever one does while the other is about to take the
// lock, the outcome is that of the two one after the other.
#include <gmock/gmock.h>

#include "coming_between.h"
#include "input/recorder.h"
#include "tests/support/engine_test.h"
#include "tests/support/input_script.h"
#include "tests/support/macro_text.h"

namespace ravelin::test {
namespace {

struct Deed {
    const char* name;
    void (*run)();
};

void PrintTo(const Deed& deed, std::ostream* out) {
    *out << deed.name;
}

void order(Requests::Flag& request) {
    raiseRequest(request);
    applyRecorderRequests();
}

// What the command thread does with a macro.
constexpr Deed commands[] = {
    {"Start", [] { order(requests.startRecording); }},
    {"Continue", [] { order(requests.continueRecording); }},
    {"Stop", [] { order(requests.stopRecording); }},
    {"Undo", [] { order(requests.undoContinuation); }},
};

// What the page and the hooks do with it.
constexpr Deed others[] = {
    {"Clear", clearProfile},
    {"Switch", [] { switchProfile("[\"1\"]"); }},
    {"SwitchToItself", [] { switchProfile("[\"0\"]"); }},
    {"Add", [] { addProfile("[\"New\"]"); }},
    {"Delete", deleteProfile},
    {"Key", [] { recordKey({.vk = 67, .down = true}); }},
};

// Where both begin.
constexpr Deed beginnings[] = {
    {"Idle", [] {}},
    {"Recording",
     [] {
         order(requests.startRecording);
         feed("900 B↓ 950 B↑");
     }},
    {"Continuing",
     [] {
         order(requests.continueRecording);
         feed("900 B↓ 950 B↑");
     }},
    {"Continued",
     [] {
         order(requests.continueRecording);
         feed("900 B↓ 950 B↑");
         order(requests.stopRecording);
     }},
    {"ContinuedAndCopied",
     [] {
         order(requests.continueRecording);
         feed("900 B↓ 950 B↑");
         order(requests.stopRecording);
         profiles[1].events = profiles[0].events;
     }},
};

using Meeting = std::tuple<Deed, Deed, Deed>;

class Interleaving : public EngineTest, public testing::WithParamInterface<Meeting> {
  protected:
    // The profile of a name of its own can be deleted; the second shares the first one's events.
    static void begin() {
        resetEngine();
        profiles = {{"Mine", "", {}}, {"Other", "", {}}};
        currentProfile = 0;
        order(requests.startRecording);
        feed("100 A↓ 300 A↑");
        order(requests.stopRecording);
        profiles[1].events = macro();
        std::get<0>(GetParam()).run();
    }
    static void command() { std::get<1>(GetParam()).run(); }
    static void other() { std::get<2>(GetParam()).run(); }

    static std::string outcome() {
        std::string text = engine.recording.load() ? "recording into " : "idle at ";
        text += std::to_string(currentProfile);
        for (const Profile& profile : profiles)
            text.append("; ").append(profile.name).append(": ").append(textOf(profile.events));
        return text;
    }
};

TEST_P(Interleaving, EndsAsOneAfterTheOther) {
    begin();
    command();
    other();
    const auto commandFirst = outcome();
    begin();
    other();
    command();
    const auto otherFirst = outcome();
    for (int lock = 1;; ++lock) {
        begin();
        const ComingBetween between(lock, other);
        command();
        if (!between.happened()) break;
        EXPECT_THAT(outcome(), testing::AnyOf(commandFirst, otherFirst)) << "at lock " << lock;
    }
    for (int lock = 1;; ++lock) {
        begin();
        const ComingBetween between(lock, command);
        other();
        if (!between.happened()) break;
        EXPECT_THAT(outcome(), testing::AnyOf(commandFirst, otherFirst))
            << "at lock " << lock << " of the other";
    }
}

TEST_F(EngineTest, AnotherThreadCanComeBetweenTheTwoLocksOfAStop) {
    order(requests.startRecording);
    feed("100 A↓");
    const ComingBetween between(2, [] { EXPECT_EQ(textOf(macro()), "100:key 65 down"); });
    order(requests.stopRecording);
    EXPECT_TRUE(between.happened());
    EXPECT_EQ(textOf(macro()), "0:key 65 down");
}

INSTANTIATE_TEST_SUITE_P(Of, Interleaving,
                         testing::Combine(testing::ValuesIn(beginnings),
                                          testing::ValuesIn(commands), testing::ValuesIn(others)),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) +
                                    std::get<1>(test.param).name + std::get<2>(test.param).name;
                         });

}  // namespace
}  // namespace ravelin::test
