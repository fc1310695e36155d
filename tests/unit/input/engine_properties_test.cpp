// What holds for any input, any macro and any moment, tried on a few hundred of each.
#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "input/auto_clicker.h"
#include "input/capture.h"
#include "input/key_spammer.h"
#include "input/player.h"
#include "input/synthetic_input.h"
#include "tests/support/engine_test.h"
#include "tests/support/macro_builder.h"

namespace ravelin::test {
namespace {

constexpr std::uint32_t seeds = 150;

class Dice {
  public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}
    // 0 to n - 1.
    std::uint32_t below(std::uint32_t n) { return static_cast<std::uint32_t>(engine_() % n); }
    std::int32_t pixel() { return static_cast<std::int32_t>(below(1000)); }
    double seconds(double longest) { return below(1'000'001) * 1e-6 * longest; }
    bool chance(std::uint32_t percent) { return below(100) < percent; }

  private:
    std::mt19937_64 engine_;
};

// One real input event. Positions differ from one to the next, so that every move is recorded.
void realInput(Dice& dice) {
    const platform::Point point{dice.pixel(), dice.pixel()};
    const std::uint32_t button = std::array<std::uint32_t, 3>{1, 2, 4}[dice.below(3)];
    switch (dice.below(6)) {
        case 0:
            onMouseEvent({.kind = MouseEvent::Kind::press, .button = button, .point = point});
            break;
        case 1:
            onMouseEvent({.kind = MouseEvent::Kind::release, .button = button, .point = point});
            break;
        case 2:
            onMouseEvent({.kind = MouseEvent::Kind::wheel, .point = point, .wheel = 120});
            break;
        case 3:
            onKeyboardEvent({65 + dice.below(26), dice.chance(50), false});
            break;
        default:
            onMouseEvent({.kind = MouseEvent::Kind::move, .point = point});
    }
}

void realInputs(Dice& dice, std::uint32_t count) {
    for (std::uint32_t i = 0; i < count; ++i) {
        // Bursts and pauses alike.
        if (dice.chance(70)) desktop.advance(dice.seconds(dice.chance(10) ? 2.0 : 0.03));
        realInput(dice);
    }
}

void record(Requests::Flag& start, Dice& dice) {
    postRequest(start);
    desktop.advance(dice.seconds(3));
    realInputs(dice, 1 + dice.below(40));
    postRequest(requests.stopRecording);
}

// What the player sends for an event at its moment; empty for a tool event.
std::vector<std::string> sentFor(const UnifiedEvent& event) {
    const auto move = [&] {
        return "move " + std::to_string(event.x) + ',' + std::to_string(event.y);
    };
    switch (static_cast<EventKind>(event.kind)) {
        case EventKind::MouseMove:
            return {move()};
        case EventKind::MouseButton:
            return {move(), describe(platform::MouseInput{.flags = event.flags})};
        case EventKind::Wheel:
            return {"wheel " + std::to_string(event.wheel)};
        case EventKind::Key:
            return {"key " + std::to_string(event.vk) + (event.down == 1 ? " down" : " up")};
        default:
            return {};
    }
}

class EngineProperty : public EngineTest, public testing::WithParamInterface<std::uint32_t> {
  protected:
    EngineProperty() : dice_(GetParam()) { passOnEverySignal(); }
    Dice dice_;
};

TEST_P(EngineProperty, APlayedRecordingSendsTheSameInputAtTheSameDistances) {
    record(requests.startRecording, dice_);
    const EventList recorded = macro();
    ASSERT_FALSE(recorded.empty());
    const double start = desktop.now() + 1;
    requestAt(start, requests.playToggle);
    runPlayer();

    auto sent = desktop.log.begin();
    for (const UnifiedEvent& event : recorded) {
        for (const std::string& text : sentFor(event)) {
            // Between the recorded events lie only points on the way of the cursor.
            while (sent != desktop.log.end() && sent->text.starts_with("move") &&
                   (sent->text != text || sent->at < start + event.time))
                ++sent;
            ASSERT_NE(sent, desktop.log.end()) << text;
            ASSERT_EQ(sent->text, text);
            // Reading the clock takes a microsecond a time, a burst of events a few of them.
            EXPECT_NEAR(sent->at - start, event.time, 2e-4);
            ++sent;
            // The last point on the way may have been the recorded one already.
            if (sent != desktop.log.end() && event.is(EventKind::MouseMove) && sent->text == text)
                ++sent;
        }
    }
    EXPECT_EQ(sent, desktop.log.end());
}

TEST_P(EngineProperty, AContinuedRecordingIsInOrderAndApartAtTheJoin) {
    record(requests.startRecording, dice_);
    const std::size_t join = macro().size();
    const EventList before = macro();
    record(requests.continueRecording, dice_);
    const EventList& list = macro();
    ASSERT_GT(list.size(), join);
    const auto byTime = [](const UnifiedEvent& a, const UnifiedEvent& b) {
        return a.time < b.time;
    };
    EXPECT_TRUE(std::is_sorted(list.begin(), list.end(), byTime));
    EXPECT_EQ(list[0].time, 0.0);
    EXPECT_GE(list[join].time - list[join - 1].time, 0.1 - 1e-9);
    postRequest(requests.undoContinuation);
    EXPECT_EQ(macro(), before);
}

TEST_P(EngineProperty, AMacroStopsWithinOneCheckAtAnyMoment) {
    record(requests.startRecording, dice_);
    toolSettings.tloop = dice_.chance(50);
    toolSettings.tspd = dice_.chance(50) ? 1.0F : 0.37F;
    desktop.log.clear();
    const double start = desktop.now() + 1;
    const double stop = start + dice_.seconds(macro()[macro().size() - 1].time + 0.3);
    requestAt(start, requests.playToggle);
    desktop.at(stop, [] {
        if (engine.playing) postRequest(requests.stopPlayback);
    });
    runPlayer();
    // Nothing but the two releases of the stop itself, and at most the record that was on its way.
    const auto late = std::count_if(desktop.log.begin(), desktop.log.end(),
                                    [&](const Sent& sent) { return sent.at > stop + 2e-5; });
    EXPECT_LE(late, 1);
    EXPECT_FALSE(engine.playing.load());
    EXPECT_LT(desktop.now(), std::max(stop, start) + 0.0015);
}

TEST_P(EngineProperty, EveryWorkerEndsWithinOneCheckOfQuit) {
    void (*const workers[])() = {runPlayer, runAutoClicker, runKeySpammer, runCommandThread};
    record(requests.startRecording, dice_);
    toolSettings.tloop = true;
    toolSettings.stype = static_cast<std::int32_t>(dice_.below(2));
    toolSettings.sms = static_cast<std::int32_t>(dice_.below(50));
    toolSettings.ksms = static_cast<std::int32_t>(dice_.below(50));
    const EventList recorded = macro();
    for (const auto worker : workers) {
        resetEngine();
        passOnEverySignal();
        macro() = recorded;
        for (auto* start : {&requests.playToggle, &requests.clickerStart, &requests.keySpamStart})
            requestAt(0.01, *start);
        const double quit = 0.01 + dice_.seconds(3);
        quitAt(quit);
        worker();
        // One check of the player, or the second half of a double click.
        EXPECT_LT(desktop.now(), quit + 0.016);
        EXPECT_GE(desktop.now(), quit - 1e-6);
    }
}

TEST_P(EngineProperty, AStoppedToolSendsNothingMore) {
    toolSettings.sms = static_cast<std::int32_t>(1 + dice_.below(40));
    toolSettings.ksms = static_cast<std::int32_t>(1 + dice_.below(40));
    const double stop = dice_.seconds(1);
    for (auto* request : {&requests.clickerStart, &requests.keySpamStart})
        requestAt(0, *request);
    for (auto* request : {&requests.clickerStop, &requests.keySpamStop})
        requestAt(stop, *request);
    dice_.chance(50) ? runAutoClicker() : runKeySpammer();
    EXPECT_LE(desktop.log.back().at, stop + 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EngineProperty, testing::Range(0U, seeds));

}  // namespace
}  // namespace ravelin::test
