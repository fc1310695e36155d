#include "app/engine_threads.h"

#include "input/fence.h"

namespace ravelin {

void ThreadGroup::start(const ThreadBody& body) {
    // Loops fence their own rounds; what still escapes one ends the thread, not the program.
    threads_.push_back({body.name, std::thread([run = body.run] { runFenced(run); })});
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
