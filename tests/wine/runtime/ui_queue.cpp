#include "ui_queue.h"

#include <algorithm>
#include <exception>
#include <string>

#include "log.h"
#include "module.h"

namespace ravelin::browser {
namespace {

constexpr UINT runMessage = WM_APP;
constexpr wchar_t className[] = L"RavelinBrowserQueue";

void run(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& failure) {
        logLine(std::string("work failed: ") + failure.what());
    }
}

}  // namespace

UiQueue::UiQueue() {
    WNDCLASSEXW type{};
    type.cbSize = sizeof type;
    type.lpfnWndProc = procedure;
    type.hInstance = thisModule();
    type.lpszClassName = className;
    RegisterClassExW(&type);
    window_ = CreateWindowExW(0, className, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              thisModule(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

UiQueue& UiQueue::ofThisThread() {
    thread_local UiQueue* queue = new UiQueue;
    return *queue;
}

void UiQueue::post(std::function<void()> work) {
    const std::scoped_lock lock(mutex_);
    work_.push_back(std::move(work));
    announce();
}

void UiQueue::announce() {
    // One message at a time: a thread that is busy for long may not find its message queue full.
    if (!announced_) announced_ = PostMessageW(window_, runMessage, 0, 0) != 0;
}

void UiQueue::postAfter(unsigned milliseconds, std::function<void()> work) {
    const UINT_PTR id = nextTimer_++;
    timers_.emplace_back(id, std::move(work));
    SetTimer(window_, id, milliseconds, nullptr);
}

void UiQueue::runNext() {
    std::function<void()> work;
    {
        const std::scoped_lock lock(mutex_);
        announced_ = false;
        if (work_.empty()) return;
        work = std::move(work_.front());
        work_.pop_front();
        // Before the work runs: it may be a message loop of its own.
        if (!work_.empty()) announce();
    }
    run(work);
}

void UiQueue::runTimer(UINT_PTR id) {
    KillTimer(window_, id);
    const auto found = std::find_if(timers_.begin(), timers_.end(),
                                    [id](const auto& timer) { return timer.first == id; });
    if (found == timers_.end()) return;
    const auto work = std::move(found->second);
    timers_.erase(found);
    run(work);
}

LRESULT CALLBACK UiQueue::procedure(HWND window, UINT message, WPARAM wide, LPARAM lng) {
    auto* queue = reinterpret_cast<UiQueue*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (queue != nullptr && message == runMessage) {
        queue->runNext();
        return 0;
    }
    if (queue != nullptr && message == WM_TIMER) {
        queue->runTimer(wide);
        return 0;
    }
    return DefWindowProcW(window, message, wide, lng);
}

}  // namespace ravelin::browser
