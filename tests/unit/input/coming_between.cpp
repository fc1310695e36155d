#include "coming_between.h"

#include <pthread.h>

#include <atomic>
#include <thread>
#include <utility>

#include "persistence/profiles.h"

namespace ravelin::test {
namespace {

// One thread's, kept without the thread's own storage: on Windows that is found under a lock.
std::atomic<ComingBetween*> waiting = nullptr;
std::thread::id waitingThread;

}  // namespace

ComingBetween::ComingBetween(int nthLock, std::function<void()> action)
    : locksToGo_(nthLock), action_(std::move(action)) {
    waitingThread = std::this_thread::get_id();
    waiting = this;
}

ComingBetween::~ComingBetween() {
    waiting = nullptr;
}

void ComingBetween::beforeLock(const void* mutex) {
    ComingBetween* const between = waiting;
    if (between == nullptr || mutex != profileMutex.native_handle() ||
        waitingThread != std::this_thread::get_id())
        return;
    if (--between->locksToGo_ > 0) return;
    // The action takes the lock as well, and is not waited for by another.
    waiting = nullptr;
    between->action_();
}

}  // namespace ravelin::test

extern "C" {

int __real_pthread_mutex_lock(pthread_mutex_t* mutex);  // NOLINT: the linker's name for it
int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex);  // NOLINT: as above

int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex) {  // NOLINT: as above
    ravelin::test::ComingBetween::beforeLock(mutex);
    return __real_pthread_mutex_lock(mutex);
}
}
