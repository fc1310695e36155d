#include "tests/bench/lock_watch.h"

#include <dlfcn.h>
#include <pthread.h>
#include <time.h>

#include <algorithm>
#include <atomic>

namespace ravelin::bench {
namespace {

double microseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

std::atomic<pthread_mutex_t*> watched{nullptr};
// Of whoever holds the watched mutex.
double cpuAtLock = 0.0;
double wallAtLock = 0.0;
LongestHold longest;

using MutexCall = int (*)(pthread_mutex_t*);

MutexCall systemCall(const char* name) {
    return reinterpret_cast<MutexCall>(dlsym(RTLD_NEXT, name));
}

void hasLocked(pthread_mutex_t* mutex) {
    if (mutex != watched.load()) return;
    wallAtLock = microseconds(CLOCK_MONOTONIC);
    cpuAtLock = microseconds(CLOCK_THREAD_CPUTIME_ID);
}

void isUnlocking(pthread_mutex_t* mutex) {
    if (mutex != watched.load()) return;
    longest.cpuUs = std::max(longest.cpuUs, microseconds(CLOCK_THREAD_CPUTIME_ID) - cpuAtLock);
    longest.wallUs = std::max(longest.wallUs, microseconds(CLOCK_MONOTONIC) - wallAtLock);
}

}  // namespace

void watchLock(std::mutex* mutex) {
    watched = nullptr;
    longest = {};
    watched = mutex != nullptr ? mutex->native_handle() : nullptr;
}

LongestHold longestHold() {
    return longest;
}

}  // namespace ravelin::bench

// In place of the system's own in this program.
extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    static const auto lock = ravelin::bench::systemCall("pthread_mutex_lock");
    const int result = lock(mutex);
    ravelin::bench::hasLocked(mutex);
    return result;
}

extern "C" int pthread_mutex_unlock(pthread_mutex_t* mutex) noexcept {
    static const auto unlock = ravelin::bench::systemCall("pthread_mutex_unlock");
    ravelin::bench::isUnlocking(mutex);
    return unlock(mutex);
}
