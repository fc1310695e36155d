// A thread with a message loop.
#pragma once

#include <windows.h>

#include <functional>
#include <thread>

namespace ravelin::test {

class MessageThread {
  public:
    // Runs `begin` on the new thread before it returns, and `end` there after the loop.
    MessageThread(std::function<void()> begin, std::function<void()> end);
    MessageThread(const MessageThread&) = delete;
    MessageThread& operator=(const MessageThread&) = delete;
    ~MessageThread();

  private:
    DWORD id_ = 0;
    std::thread thread_;
};

}  // namespace ravelin::test
