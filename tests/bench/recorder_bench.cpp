// What a recorded event costs the input thread, with a short and a long macro, beside a plain
// vector under a mutex.
#include <mutex>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "tests/bench/latencies.h"
#include "tests/bench/long_macro.h"
#include "tests/support/engine_reset.h"

namespace ravelin::bench {
namespace {

constexpr std::size_t appends = 200'000;
constexpr char goal[] = "goal: p99 below 5 us at a million events";

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1'000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);
}

void appendRecordedEvents(benchmark::State& state) {
    test::resetEngine();
    toolSettings.trel = true;
    profiles[0].events = longMacro(static_cast<std::size_t>(state.range(0)));
    raiseRequest(requests.continueRecording);
    applyRecorderRequests();
    Latencies latencies(appends);
    for (auto _ : state)
        for (std::size_t i = 0; i < appends; ++i)
            latencies.time([] { onRawMotion(1, -1); });
    latencies.report(state);
    state.SetLabel(goal);
    test::resetEngine();
}
BENCHMARK(appendRecordedEvents)->Apply(sizes);

void appendToVectorUnderMutex(benchmark::State& state) {
    std::mutex mutex;
    std::vector<UnifiedEvent> events;
    for (const UnifiedEvent& event : longMacro(static_cast<std::size_t>(state.range(0))))
        events.push_back(event);
    Latencies latencies(appends);
    for (auto _ : state)
        for (std::size_t i = 0; i < appends; ++i)
            latencies.time([&] {
                UnifiedEvent event;
                const std::lock_guard lock(mutex);
                event.time = static_cast<double>(platform::counter());
                events.push_back(event);
            });
    latencies.report(state);
    state.SetLabel("baseline");
}
BENCHMARK(appendToVectorUnderMutex)->Apply(sizes);

}  // namespace
}  // namespace ravelin::bench
