// Scanning a macro of a million events: as people record them, and built to be slow to scan. The
// baseline reads the same events once and does nothing else.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

#include "scanner/scan.h"

namespace {

using ravelin::EventList;
using ravelin::UnifiedEvent;

constexpr int eventCount = 1'000'000;

UnifiedEvent key(double time, std::uint32_t vk, bool down = true) {
    UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(ravelin::EventKind::Key);
    event.time = time;
    event.vk = vk;
    event.down = down ? 1 : 0;
    return event;
}

EventList macroOf(const std::function<UnifiedEvent(int)>& eventAt) {
    EventList events;
    for (int i = 0; i < eventCount; ++i)
        events.append(eventAt(i));
    return events;
}

// Mouse motion with typing in between, one key a second.
EventList ordinary() {
    return macroOf([](int i) {
        const double time = i * 0.01;
        if (i % 50 == 0)
            return key(time, static_cast<std::uint32_t>('A' + i / 100 % 26), i % 100 == 0);
        UnifiedEvent move;
        move.time = time;
        move.x = i % 1920;
        return move;
    });
}

// Letters pressed without a release, too slowly for a burst: no scenario ever begins.
EventList presses() {
    return macroOf([](int i) { return key(i, 'A'); });
}

// Ctrl held, then copying, selecting and opening the address bar in turn, which begins six
// sequences over and over and completes none.
EventList restarts() {
    constexpr std::uint32_t starts[] = {'C', 'X', 'A', 'L'};
    return macroOf([&](int i) { return i == 0 ? key(0, 17) : key(i, starts[i % 4]); });
}

// A bare Windows key and a letter, forever: two steps of three, without the last.
EventList nearlyThere() {
    return macroOf([](int i) {
        return i % 3 == 0 ? key(i, 91) : i % 3 == 1 ? key(i, 91, false) : key(i, 'A');
    });
}

// Closing chords, each just too far from the one before.
EventList nearRepeats() {
    return macroOf([](int i) { return i == 0 ? key(0, 18) : key(31.0 * i, 115); });
}

// Codes that no keyboard has, each another one, so that no answer can be remembered.
EventList impossibleKeys() {
    return macroOf([](int i) { return key(i, 256 + static_cast<std::uint32_t>(i)); });
}

void report(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * eventCount);
}

void readOnce(benchmark::State& state, EventList (*macro)()) {
    const EventList events = macro();
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (const UnifiedEvent& event : events)
            sum += event.vk;
        benchmark::DoNotOptimize(sum);
    }
    report(state);
}

void scan(benchmark::State& state, EventList (*macro)()) {
    const EventList events = macro();
    for (auto _ : state) {
        auto result = MacroScan::Scan(events);
        benchmark::DoNotOptimize(result);
    }
    report(state);
}

#define RAVELIN_SCAN_BENCH(macro)                                             \
    BENCHMARK_CAPTURE(readOnce, macro, macro)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(scan, macro, macro)->Unit(benchmark::kMillisecond)

RAVELIN_SCAN_BENCH(ordinary);
RAVELIN_SCAN_BENCH(presses);
RAVELIN_SCAN_BENCH(restarts);
RAVELIN_SCAN_BENCH(nearlyThere);
RAVELIN_SCAN_BENCH(nearRepeats);
RAVELIN_SCAN_BENCH(impossibleKeys);

}  // namespace
