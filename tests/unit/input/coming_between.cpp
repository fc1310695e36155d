#include "coming_between.h"

#include <pthread.h>

#include <utility>

#include "persistence/profiles.h"

namespace ravelin::test {
namespace {

thread_local ComingBetween* waiting = nullptr;

}  // namespace

ComingBetween::ComingBetween(int nthLock, std::function<void()> action)
    : locksToGo_(nthLock), action_(std::move(action)) {
    waiting = this;
}

ComingBetween::~ComingBetween() {
    waiting = nullptr;
}

void ComingBetween::beforeLock(const void* mutex) {
    if (waiting == nullptr || mutex != profileMutex.native_handle()) return;
    if (--waiting->locksToGo_ > 0) return;
    // The action takes the lock as well, and is not waited for by another.
    std::exchange(waiting, nullptr)->action_();
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
