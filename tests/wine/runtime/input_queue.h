// Input events on their way to the page, in the order in which they happened. A mouse event waits
// for the page to take the one before: a drop decides by what the target said of the last move.
// Moves that pile up meanwhile become one. While a page is opened everything waits.
#pragma once

#include <deque>
#include <memory>

#include "page.h"
#include "ui_queue.h"

namespace ravelin::browser {

enum class InputKind : unsigned char { move, button, other };

class InputQueue : public std::enable_shared_from_this<InputQueue> {
  public:
    InputQueue(UiQueue& timers, std::shared_ptr<Page> page)
        : timers_(timers), page_(std::move(page)) {}

    void push(InputKind kind, const char* method, Json parameters);

  private:
    struct Event {
        InputKind kind;
        const char* method;
        Json parameters;
    };
    void sendNext();
    bool waitsForPage();
    void taken(unsigned number);

    UiQueue& timers_;
    std::shared_ptr<Page> page_;
    std::deque<Event> waiting_;
    // The number of the event that the page has not taken yet; 0 when there is none.
    unsigned underway_ = 0;
    unsigned lastNumber_ = 0;
    bool waitingForPage_ = false;
};

}  // namespace ravelin::browser
