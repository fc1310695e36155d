// The session file with a macro of a million events, and how long saving it holds up the recorder.
#include "persistence/session_file.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "persistence/session_text.h"
#include "support/line_reader.h"
#include "tests/support/generated_macro.h"
#include "tests/support/peak_memory.h"
#include "tests/support/reference_reader.h"
#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

struct SessionOnDisk {
    test::TempFolder folder;
    std::int64_t bytes = 0;

    SessionOnDisk() {
        test::keepFreedMemory();
        sessionPath = folder.file("session.dat");
        profiles = {Profile{defaultProfileName, std::string(defaultSettingsLine),
                            test::generatedMacro(1000000)}};
        currentProfile = 0;
        saveSession();
        bytes = static_cast<std::int64_t>(std::filesystem::file_size(sessionPath));
    }
};

SessionOnDisk& session() {
    static SessionOnDisk instance;
    return instance;
}

void saveSessionOfAMillionEvents(benchmark::State& state) {
    const auto bytes = session().bytes;
    const test::PeakMemory peak;
    for (auto _ : state)
        saveSession();
    state.counters["peak_MB"] = peak.megabytes();
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(saveSessionOfAMillionEvents)->Unit(benchmark::kMillisecond);

// Under the lock from the first line to the last, as a stream writes them.
void saveSessionThroughAStream(benchmark::State& state) {
    const auto bytes = session().bytes;
    const auto path = session().folder.file("streamed.dat");
    double longest = 0;
    for (auto _ : state) {
        const std::lock_guard lock(profileMutex);
        const auto start = Clock::now();
        std::ofstream file(path, std::ios::binary);
        file << settingsPrefix << sessionSettingsLine() << "\r\nCURRENT:" << currentProfile
             << "\r\n";
        for (const auto& profile : profiles) {
            file << "PROFILE:" << profile.name << "\r\n";
            for (const auto& e : profile.events)
                file << e.kind << ',' << e.time << ',' << e.x << ',' << e.y << ',' << e.flags << ','
                     << static_cast<std::int32_t>(e.vk) << ',' << (e.down != 0 ? 1 : 0) << ','
                     << e.wheel << "\r\n";
        }
        longest = std::max(longest, milliseconds(Clock::now() - start));
    }
    state.counters["held_ms"] = longest;
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(saveSessionThroughAStream)->Unit(benchmark::kMillisecond);

// What the recorder meets: the longest it waited for the lock while one save after the other ran.
void waitForTheProfilesDuringSaves(benchmark::State& state) {
    session();
    std::atomic<bool> done{false};
    std::atomic<double> longest{0};
    std::thread recorder([&] {
        while (!done) {
            const auto start = Clock::now();
            { const std::lock_guard lock(profileMutex); }
            longest = std::max(longest.load(), milliseconds(Clock::now() - start));
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
    });
    for (auto _ : state)
        saveSession();
    done = true;
    recorder.join();
    state.counters["longest_wait_ms"] = longest.load();
}
BENCHMARK(waitForTheProfilesDuringSaves)->Unit(benchmark::kMillisecond)->UseRealTime();

// How long a crash or a power cut would find the file cut short, a save: the time in which another
// process sees it smaller than it is before and after.
void fileIsCutDuringSaves(benchmark::State& state) {
    const auto whole = static_cast<std::uintmax_t>(session().bytes);
    std::atomic<bool> done{false};
    double cut = 0;
    std::thread watcher([&] {
        std::error_code ignored;
        auto since = Clock::now();
        bool wasWhole = true;
        while (!done || !wasWhole) {
            const bool isWhole = std::filesystem::file_size(sessionPath, ignored) == whole;
            if (wasWhole && !isWhole) since = Clock::now();
            if (!wasWhole && isWhole) cut += milliseconds(Clock::now() - since);
            wasWhole = isWhole;
        }
    });
    for (auto _ : state)
        saveSession();
    done = true;
    watcher.join();
    state.counters["cut_ms"] = benchmark::Counter(cut, benchmark::Counter::kAvgIterations);
}
BENCHMARK(fileIsCutDuringSaves)->Unit(benchmark::kMillisecond)->UseRealTime();

// The part of a save that holds the lock: a copy of the profiles.
void copyAMillionEvents(benchmark::State& state) {
    session();
    for (auto _ : state) {
        const auto copy = profiles;
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(copyAMillionEvents)->Unit(benchmark::kMicrosecond);

void loadSessionOfAMillionEvents(benchmark::State& state) {
    const auto bytes = session().bytes;
    const test::PeakMemory peak;
    for (auto _ : state) {
        auto lines = openLines(sessionPath);
        if (readSession(*lines)->profiles.at(0).events.size() != 1000000)
            state.SkipWithError("not read");
    }
    state.counters["peak_MB"] = peak.megabytes();
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(loadSessionOfAMillionEvents)->Unit(benchmark::kMillisecond);

void loadSessionThroughStreams(benchmark::State& state) {
    const auto bytes = session().bytes;
    for (auto _ : state)
        if (test::referenceSession(test::readBytes(sessionPath))->profiles.at(0).events.size() !=
            1000000)
            state.SkipWithError("not read");
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(loadSessionThroughStreams)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ravelin
