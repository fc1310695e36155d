#include "input_queue.h"

namespace ravelin::browser {
namespace {

// A page that takes this long over an event may get the next one; it is busy or gone.
constexpr unsigned patience = 2000;

}  // namespace

void InputQueue::push(InputKind kind, const char* method, Json parameters) {
    if (kind == InputKind::move && !waiting_.empty() && waiting_.back().kind == InputKind::move) {
        waiting_.back().parameters = std::move(parameters);
    } else {
        waiting_.push_back({kind, method, std::move(parameters)});
    }
    sendNext();
}

// A page that gets input while it is replaced by another loses track of the pointer: what was
// pressed later was not captured by the element that asked for it.
bool InputQueue::waitsForPage() {
    if (!page_->isBusy()) return false;
    if (!waitingForPage_) {
        waitingForPage_ = true;
        page_->whenIdle([weak = weak_from_this()] {
            const auto self = weak.lock();
            if (!self) return;
            self->waitingForPage_ = false;
            self->sendNext();
        });
    }
    return true;
}

void InputQueue::sendNext() {
    if (waiting_.empty() || waitsForPage()) return;
    while (underway_ == 0 && !waiting_.empty()) {
        Event event = std::move(waiting_.front());
        waiting_.pop_front();
        if (event.kind == InputKind::other) {
            page_->input(event.method, std::move(event.parameters));
            continue;
        }
        const unsigned number = ++lastNumber_;
        underway_ = number;
        const std::weak_ptr<InputQueue> weak = weak_from_this();
        const auto done = [weak, number] {
            if (const auto self = weak.lock()) self->taken(number);
        };
        page_->input(event.method, std::move(event.parameters), done);
        timers_.postAfter(patience, done);
    }
}

void InputQueue::taken(unsigned number) {
    if (underway_ != number) return;
    underway_ = 0;
    sendNext();
}

}  // namespace ravelin::browser
