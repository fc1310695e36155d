// Work for one thread: other threads post it, that thread's message loop runs it, one piece a
// message and in the order of posting.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace ravelin::browser {

class UiQueue {
  public:
    // The queue of the calling thread. It stays for good, so other threads may keep it.
    static UiQueue& ofThisThread();

    UiQueue(const UiQueue&) = delete;
    UiQueue& operator=(const UiQueue&) = delete;

    // From any thread. Work that throws is logged and dropped.
    void post(std::function<void()> work);
    // Runs the work once after a delay; on the queue's own thread only.
    void postAfter(unsigned milliseconds, std::function<void()> work);

  private:
    UiQueue();
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM lng);
    void announce();
    void runNext();
    void runTimer(UINT_PTR id);

    HWND window_ = nullptr;
    std::mutex mutex_;
    std::deque<std::function<void()>> work_;
    // A message that runs the next piece is on its way. Guarded by the mutex, like the work.
    bool announced_ = false;
    std::deque<std::pair<UINT_PTR, std::function<void()>>> timers_;
    UINT_PTR nextTimer_ = 1;
};

}  // namespace ravelin::browser
