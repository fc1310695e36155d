// The threads that run beside the user interface, from the end of the start-up to the shut-down.
#pragma once

#include <functional>
#include <string_view>
#include <thread>
#include <vector>

namespace ravelin {

struct ThreadBody {
    std::string_view name;
    std::function<void()> run;
};

// Starts bodies in order and joins them in another. A body that throws ends its thread, not the
// process: nothing may escape a thread's entry.
class ThreadGroup {
  public:
    ThreadGroup() = default;
    ThreadGroup(const ThreadGroup&) = delete;
    ThreadGroup& operator=(const ThreadGroup&) = delete;
    ~ThreadGroup() { joinAll(); }

    void start(const ThreadBody& body);
    // Waits for the thread of that name; a name that was not started is passed over.
    void join(std::string_view name);
    void joinAll();

  private:
    struct Started {
        std::string_view name;
        std::thread thread;
    };
    std::vector<Started> threads_;
};

}  // namespace ravelin
