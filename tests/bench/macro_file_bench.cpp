// Macro files of a million events, beside the plain way through streams and standard conversions.
#include "persistence/macro_file.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "tests/support/generated_macro.h"
#include "tests/support/peak_memory.h"
#include "tests/support/reference_reader.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

constexpr std::size_t eventCount = 1000000;

struct MacroOnDisk {
    test::TempFolder folder;
    std::string path = folder.file("bench.rvnmacro");
    Profile profile{"A million events", "", test::generatedMacro(eventCount)};
    std::int64_t bytes = 0;

    MacroOnDisk() {
        test::keepFreedMemory();
        writeMacroFile(path, profile);
        bytes = static_cast<std::int64_t>(std::filesystem::file_size(path));
    }
};

MacroOnDisk& macro() {
    static MacroOnDisk instance;
    return instance;
}

void report(benchmark::State& state, const test::PeakMemory& peak) {
    state.counters["peak_MB"] = peak.megabytes();
    state.counters["file_MB"] = static_cast<double>(macro().bytes) / 1e6;
    state.SetBytesProcessed(state.iterations() * macro().bytes);
}

void readMacroOfAMillionEvents(benchmark::State& state) {
    const auto& path = macro().path;
    const test::PeakMemory peak;
    for (auto _ : state) {
        Profile profile;
        if (!readMacroFile(path, profile).empty() || profile.events.size() != eventCount)
            state.SkipWithError("not read");
    }
    report(state, peak);
}
BENCHMARK(readMacroOfAMillionEvents)->Unit(benchmark::kMillisecond);

// getline for the lines and for the fields, a standard conversion for each.
void readMacroThroughStreams(benchmark::State& state) {
    const auto& path = macro().path;
    const test::PeakMemory peak;
    for (auto _ : state) {
        std::ifstream file(path, std::ios::binary);
        std::vector<UnifiedEvent> events;
        std::string line;
        std::getline(file, line);
        std::getline(file, line);
        while (std::getline(file, line)) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            if (const auto event = test::referenceEvent(line)) events.push_back(*event);
        }
        if (events.size() != eventCount) state.SkipWithError("not read");
    }
    report(state, peak);
}
BENCHMARK(readMacroThroughStreams)->Unit(benchmark::kMillisecond);

void writeMacroOfAMillionEvents(benchmark::State& state) {
    const auto path = macro().folder.file("written.rvnmacro");
    const test::PeakMemory peak;
    for (auto _ : state)
        if (!writeMacroFile(path, macro().profile).empty()) state.SkipWithError("not written");
    report(state, peak);
}
BENCHMARK(writeMacroOfAMillionEvents)->Unit(benchmark::kMillisecond);

void writeMacroThroughAStream(benchmark::State& state) {
    const auto path = macro().folder.file("written.rvnmacro");
    const test::PeakMemory peak;
    for (auto _ : state) {
        std::ofstream file(path, std::ios::binary);
        file << "A million events\r\nSETTINGS:\r\n";
        for (const auto& e : macro().profile.events)
            file << e.kind << ',' << e.time << ',' << e.x << ',' << e.y << ',' << e.flags << ','
                 << static_cast<std::int32_t>(e.vk) << ',' << (e.down != 0 ? 1 : 0) << ','
                 << e.wheel << "\r\n";
    }
    report(state, peak);
}
BENCHMARK(writeMacroThroughAStream)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ravelin
