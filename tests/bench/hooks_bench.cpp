// What the hooks cost the whole desktop: every key and mouse event of every program waits for them.
#include "input/capture.h"
#include "input/engine_state.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "tests/bench/latencies.h"
#include "tests/support/engine_reset.h"

namespace ravelin::bench {
namespace {

constexpr std::uint32_t calls = 200'000;
constexpr std::uint32_t keyA = 65;
constexpr std::uint32_t keyF6 = 117;

template <class Call>
void measure(benchmark::State& state, const char* label, Call call) {
    Latencies latencies(calls);
    for (auto _ : state)
        for (std::uint32_t i = 0; i < calls; ++i)
            latencies.time([&] { call(i); });
    latencies.report(state);
    state.SetLabel(label);
}

void callOfNothing(benchmark::State& state) {
    measure(state, "baseline: the clock alone",
            [](std::uint32_t i) { benchmark::DoNotOptimize(i); });
}
BENCHMARK(callOfNothing)->Iterations(1)->Unit(benchmark::kMillisecond);

void hotkeyPressesAndReleases(benchmark::State& state) {
    test::resetEngine();
    measure(state, "goal: p99 below 5 us", [](std::uint32_t i) {
        onKeyboardEvent({keyF6, i % 2 == 0, false});
    });
    test::resetEngine();
}
BENCHMARK(hotkeyPressesAndReleases)->Iterations(1)->Unit(benchmark::kMillisecond);

void keysPassedThrough(benchmark::State& state) {
    test::resetEngine();
    measure(state, "goal: p99 below 5 us", [](std::uint32_t i) {
        onKeyboardEvent({keyA, i % 2 == 0, false});
    });
}
BENCHMARK(keysPassedThrough)->Iterations(1)->Unit(benchmark::kMillisecond);

void movesPassedThrough(benchmark::State& state) {
    test::resetEngine();
    measure(state, "goal: p99 below 5 us", [](std::uint32_t i) {
        onMouseEvent({.kind = MouseEvent::Kind::move, .point = {static_cast<std::int32_t>(i), 0}});
    });
}
BENCHMARK(movesPassedThrough)->Iterations(1)->Unit(benchmark::kMillisecond);

void movesRecorded(benchmark::State& state) {
    test::resetEngine();
    raiseRequest(requests.startRecording);
    applyRecorderRequests();
    measure(state, "goal: p99 below 5 us", [](std::uint32_t i) {
        onMouseEvent(
            {.kind = MouseEvent::Kind::move, .point = {static_cast<std::int32_t>(i + 1), 0}});
    });
    test::resetEngine();
}
BENCHMARK(movesRecorded)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ravelin::bench
