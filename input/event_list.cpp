#include "input/event_list.h"

#include <algorithm>

namespace ravelin {

EventList::EventList(std::initializer_list<UnifiedEvent> events) {
    for (const auto& event : events)
        append(event);
}

void EventList::makeRoom() {
    if (size_ % chunkSize == 0) {
        chunks_.push_back(std::make_shared<Chunk>());
    } else {
        // A copy that shares this chunk may append to it as well: part before writing.
        chunks_.back() = std::make_shared<Chunk>(*chunks_.back());
    }
}

void EventList::shiftTimes(std::size_t first, double seconds) {
    for (std::size_t c = first / chunkSize; c < chunks_.size(); ++c) {
        // Cloned whatever the count says: a copy that was just dropped by another thread may still
        // have been reading these times.
        auto chunk = std::make_shared<Chunk>(*chunks_[c]);
        const std::size_t base = c * chunkSize;
        const std::size_t last = std::min(chunkSize, size_ - base);
        for (std::size_t i = first > base ? first - base : 0; i < last; ++i)
            (*chunk)[i].time -= seconds;
        chunks_[c] = std::move(chunk);
    }
}

void EventList::clear() {
    chunks_.clear();
    size_ = 0;
}

bool EventList::isSnapshot(const EventList& other) const {
    return size_ == other.size_ && chunks_ == other.chunks_;
}

bool operator==(const EventList& a, const EventList& b) {
    if (a.size_ != b.size_) return false;
    for (std::size_t c = 0; c < a.chunks_.size(); ++c) {
        if (a.chunks_[c] == b.chunks_[c]) continue;
        const std::size_t count =
            std::min(EventList::chunkSize, a.size_ - c * EventList::chunkSize);
        if (!std::equal(a.chunks_[c]->begin(),
                        a.chunks_[c]->begin() + static_cast<std::ptrdiff_t>(count),
                        b.chunks_[c]->begin()))
            return false;
    }
    return true;
}

}  // namespace ravelin
