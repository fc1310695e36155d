// Times of single calls, reported beside each other: the middle, the 99th percentile and the worst.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace ravelin::bench {

class Latencies {
  public:
    using Clock = std::chrono::steady_clock;

    explicit Latencies(std::size_t expected) { nanoseconds_.reserve(expected); }

    template <class Call>
    void time(Call call) {
        const auto start = Clock::now();
        call();
        add(Clock::now() - start);
    }
    void add(Clock::duration duration) {
        nanoseconds_.push_back(std::chrono::duration<double, std::nano>(duration).count());
    }

    // Counters in microseconds.
    void report(benchmark::State& state) {
        if (nanoseconds_.empty()) return;
        std::sort(nanoseconds_.begin(), nanoseconds_.end());
        state.counters["p50_us"] = at(0.50);
        state.counters["p99_us"] = at(0.99);
        state.counters["max_us"] = nanoseconds_.back() / 1000;
    }

  private:
    double at(double share) const {
        const auto last = static_cast<double>(nanoseconds_.size() - 1);
        return nanoseconds_[static_cast<std::size_t>(last * share)] / 1000;
    }
    std::vector<double> nanoseconds_;
};

}  // namespace ravelin::bench
