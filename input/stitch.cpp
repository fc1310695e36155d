#include "input/stitch.h"

#include <algorithm>

#include "input/synthetic_input.h"

namespace ravelin {
namespace {

constexpr double gapAtJoin = 0.1;  // seconds

using Iterator = EventList::const_iterator;

bool earlier(const UnifiedEvent& a, const UnifiedEvent& b) {
    return a.time < b.time;
}

bool isButtonPress(const UnifiedEvent& event) {
    return event.is(EventKind::MouseButton) &&
           (event.flags == mouse_flag::leftDown || event.flags == mouse_flag::rightDown ||
            event.flags == mouse_flag::middleDown || event.flags == mouse_flag::sideDown);
}

// The latest press, the later event of two at the same time; null without a press.
const UnifiedEvent* lastPress(Iterator begin, Iterator end) {
    const UnifiedEvent* last = nullptr;
    for (; begin != end; ++begin)
        if (isButtonPress(*begin) && (last == nullptr || begin->time >= last->time)) last = &*begin;
    return last;
}

// The earliest press, the earlier event of two at the same time; null without a press.
const UnifiedEvent* firstPress(Iterator begin, Iterator end) {
    const UnifiedEvent* first = nullptr;
    for (; begin != end; ++begin)
        if (isButtonPress(*begin) && (first == nullptr || begin->time < first->time))
            first = &*begin;
    return first;
}

}  // namespace

void stitchContinuation(EventList& events, std::size_t continuation, double doubleClickGuard) {
    const std::size_t k = std::min(events.size(), continuation);
    if (events.size() <= k) return;
    const auto begin = events.begin();
    const auto join = begin + static_cast<std::ptrdiff_t>(k);
    const auto end = events.end();

    const double oldEnd = k > 0 ? std::max_element(begin, join, earlier)->time + gapAtJoin : 0.0;
    double shift = std::min_element(join, end, earlier)->time - oldEnd;

    const UnifiedEvent* oldPress = lastPress(begin, join);
    const UnifiedEvent* newPress = firstPress(join, end);
    if (oldPress != nullptr && newPress != nullptr && oldPress->flags == newPress->flags) {
        const double gap = (newPress->time - shift) - oldPress->time;
        if (gap < doubleClickGuard) shift -= doubleClickGuard - gap;
    }
    events.shiftTimes(k, shift);
}

}  // namespace ravelin
