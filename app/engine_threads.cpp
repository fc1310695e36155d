#include "app/engine_threads.h"

namespace ravelin {

void ThreadGroup::start(const ThreadBody& body) {
    threads_.push_back({body.name, std::thread([run = body.run] {
                            try {
                                run();
                            } catch (...) {
                                // The thread's work is over; the program goes on without it.
                                return;
                            }
                        })});
}

void ThreadGroup::join(std::string_view name) {
    for (Started& started : threads_)
        if (started.name == name && started.thread.joinable()) started.thread.join();
}

void ThreadGroup::joinAll() {
    for (Started& started : threads_)
        if (started.thread.joinable()) started.thread.join();
}

}  // namespace ravelin
