// What another thread does at the worst moment: while this one is about to take profileMutex.
#pragma once

#include <functional>

namespace ravelin::test {

// Runs the action once, before the nth time (the first is 1) that this thread takes profileMutex
// from now on. The link puts itself in front of the system's lock; see cmake/tests.cmake.
class ComingBetween {
  public:
    ComingBetween(int nthLock, std::function<void()> action);
    ComingBetween(const ComingBetween&) = delete;
    ComingBetween& operator=(const ComingBetween&) = delete;
    ~ComingBetween();

    // False when the lock was taken less often.
    bool happened() const { return locksToGo_ == 0; }

    // The system's lock is about to be called with the native handle of a mutex.
    static void beforeLock(const void* mutex);

  private:
    int locksToGo_;
    std::function<void()> action_;
};

}  // namespace ravelin::test
