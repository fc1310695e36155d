// How long a hook may have to wait for the profiles with a macro of a million events: the longest
// hold of their lock in what the engine does with the whole list, as processor time and as wall
// time of a machine that may be busy. Beside it, the same work done the plain way: on a vector, all
// of it under the lock.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <mutex>
#include <vector>

#include "input/engine_state.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/status.h"
#include "persistence/profiles.h"
#include "tests/bench/lock_watch.h"
#include "tests/bench/long_macro.h"
#include "tests/support/engine_reset.h"

namespace ravelin::bench {
namespace {

constexpr std::size_t events = 1'000'000;
constexpr char goal[] = "goal: hold below 20'000 us";

void runRequest(Requests::Flag& request) {
    raiseRequest(request);
    applyRecorderRequests();
}

// Half a million events, and half a million more recorded behind them.
void recordAContinuation() {
    test::resetEngine();
    profiles[0].events = longMacro(events / 2);
    runRequest(requests.continueRecording);
    for (const UnifiedEvent& event : longMacro(events / 2))
        profiles[0].events.append(event);
}

template <class Prepare, class Work>
void measure(benchmark::State& state, std::mutex& mutex, Prepare prepare, Work work) {
    LongestHold longest;
    for (auto _ : state) {
        state.PauseTiming();
        prepare();
        watchLock(&mutex);
        state.ResumeTiming();
        work();
        state.PauseTiming();
        longest.cpuUs = std::max(longest.cpuUs, longestHold().cpuUs);
        longest.wallUs = std::max(longest.wallUs, longestHold().wallUs);
        watchLock(nullptr);
        state.ResumeTiming();
    }
    state.counters["hold_cpu_us"] = longest.cpuUs;
    state.counters["hold_wall_us"] = longest.wallUs;
}

void recordAndStop() {
    recordAContinuation();
    runRequest(requests.stopRecording);
}

template <class Work>
void measureEngine(benchmark::State& state, void (*prepare)(), Work work) {
    measure(state, profileMutex, prepare, work);
    state.SetLabel(goal);
    test::resetEngine();
}

void stitchAtStop(benchmark::State& state) {
    measureEngine(state, recordAContinuation, [] { runRequest(requests.stopRecording); });
}
BENCHMARK(stitchAtStop)->Iterations(15)->Unit(benchmark::kMillisecond);

void snapshot(benchmark::State& state) {
    measureEngine(state, recordAndStop, [] {
        const std::lock_guard lock(profileMutex);
        const EventList copy = profiles[0].events;
        benchmark::DoNotOptimize(copy.size());
    });
}
BENCHMARK(snapshot)->Iterations(15)->Unit(benchmark::kMillisecond);

void statusPoll(benchmark::State& state) {
    measureEngine(state, recordAndStop, [] { benchmark::DoNotOptimize(getTrackerStatus({})); });
}
BENCHMARK(statusPoll)->Iterations(15)->Unit(benchmark::kMillisecond);

void undoOfAContinuation(benchmark::State& state) {
    measureEngine(state, recordAndStop, [] { runRequest(requests.undoContinuation); });
}
BENCHMARK(undoOfAContinuation)->Iterations(15)->Unit(benchmark::kMillisecond);

void freshStart(benchmark::State& state) {
    measureEngine(state, recordAndStop, [] { runRequest(requests.startRecording); });
}
BENCHMARK(freshStart)->Iterations(15)->Unit(benchmark::kMillisecond);

// The plain way.
struct PlainMacro {
    std::mutex mutex;
    std::vector<UnifiedEvent> events;
    std::vector<UnifiedEvent> copy;

    void prepare() {
        copy = {};
        events.clear();
        for (const UnifiedEvent& event : longMacro(bench::events))
            events.push_back(event);
    }
};

void plainStitchAtStop(benchmark::State& state) {
    PlainMacro macro;
    measure(
        state, macro.mutex, [&] { macro.prepare(); },
        [&] {
            const std::lock_guard lock(macro.mutex);
            const auto join = macro.events.begin() + events / 2;
            const auto byTime = [](const UnifiedEvent& a, const UnifiedEvent& b) {
                return a.time < b.time;
            };
            const double shift = std::min_element(join, macro.events.end(), byTime)->time -
                                 std::max_element(macro.events.begin(), join, byTime)->time;
            for (auto event = join; event != macro.events.end(); ++event)
                event->time -= shift;
            macro.copy = macro.events;
        });
    state.SetLabel("baseline");
}
BENCHMARK(plainStitchAtStop)->Iterations(15)->Unit(benchmark::kMillisecond);

void plainSnapshot(benchmark::State& state) {
    PlainMacro macro;
    measure(
        state, macro.mutex, [&] { macro.prepare(); },
        [&] {
            const std::lock_guard lock(macro.mutex);
            macro.copy = macro.events;
        });
    state.SetLabel("baseline");
}
BENCHMARK(plainSnapshot)->Iterations(15)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ravelin::bench
