#include "tests/windows/harness/message_thread.h"

#include <future>
#include <utility>

namespace ravelin::test {

MessageThread::MessageThread(std::function<void()> begin, std::function<void()> end) {
    std::promise<void> begun;
    auto ready = begun.get_future();
    thread_ = std::thread([this, &begun, begin = std::move(begin), end = std::move(end)] {
        MSG message{};
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        id_ = GetCurrentThreadId();
        begin();
        begun.set_value();
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        end();
    });
    ready.wait();
}

MessageThread::~MessageThread() {
    PostThreadMessageW(id_, WM_QUIT, 0, 0);
    thread_.join();
}

}  // namespace ravelin::test
