// What happened, noted by one thread and awaited by another.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace ravelin::test {

// How long a test waits for what must come. Only a failing test ever waits that long.
inline constexpr std::chrono::seconds patience{20};

template <class T>
class EventLog {
  public:
    void add(T event) {
        const std::lock_guard lock(mutex_);
        events_.push_back(std::move(event));
        changed_.notify_all();
    }

    // Waits until the condition holds for all events so far; false when it never does.
    template <class Condition>
    bool await(Condition condition) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, patience, [&] { return condition(std::as_const(events_)); });
    }

    // Waits for an event that fits.
    template <class Fits>
    bool awaitOne(Fits fits) {
        return await([&](const std::vector<T>& events) {
            for (const T& event : events)
                if (fits(event)) return true;
            return false;
        });
    }

    std::vector<T> all() const {
        const std::lock_guard lock(mutex_);
        return events_;
    }

    void clear() {
        const std::lock_guard lock(mutex_);
        events_.clear();
    }

  private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<T> events_;
};

}  // namespace ravelin::test
