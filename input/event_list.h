// The events of a macro: a list that grows at its end and is copied in next to no time.
//
// Events live in chunks that copies share, so taking a snapshot under a lock costs a few
// microseconds at a million events instead of a copy of forty megabytes, and an append never moves
// what is already there. A chunk is cloned before it is written while a copy shares it. A list is
// not synchronised by itself: whoever shares it between threads guards it; a copy is then its
// owner's alone and may be read while the original grows.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "input/unified_event.h"

namespace ravelin {

class EventList {
  public:
    static constexpr std::size_t chunkSize = 1024;

    class const_iterator {
      public:
        using iterator_category = std::random_access_iterator_tag;
        using iterator_concept = std::random_access_iterator_tag;
        using value_type = UnifiedEvent;
        using difference_type = std::ptrdiff_t;
        using pointer = const UnifiedEvent*;
        using reference = const UnifiedEvent&;

        const_iterator() = default;
        const_iterator(const EventList* list, std::size_t index) : list_(list), index_(index) {}
        reference operator*() const { return (*list_)[index_]; }
        pointer operator->() const { return &(*list_)[index_]; }
        reference operator[](difference_type n) const { return *(*this + n); }
        const_iterator& operator++() { return *this += 1; }
        const_iterator operator++(int) {
            auto old = *this;
            ++*this;
            return old;
        }
        const_iterator& operator--() { return *this -= 1; }
        const_iterator operator--(int) {
            auto old = *this;
            --*this;
            return old;
        }
        const_iterator& operator+=(difference_type n) {
            index_ = static_cast<std::size_t>(static_cast<difference_type>(index_) + n);
            return *this;
        }
        const_iterator& operator-=(difference_type n) { return *this += -n; }
        friend const_iterator operator+(const_iterator it, difference_type n) { return it += n; }
        friend const_iterator operator+(difference_type n, const_iterator it) { return it += n; }
        friend const_iterator operator-(const_iterator it, difference_type n) { return it -= n; }
        friend difference_type operator-(const const_iterator& a, const const_iterator& b) {
            return static_cast<difference_type>(a.index_) - static_cast<difference_type>(b.index_);
        }
        friend bool operator==(const const_iterator& a, const const_iterator& b) {
            return a.index_ == b.index_;
        }
        friend auto operator<=>(const const_iterator& a, const const_iterator& b) {
            return a.index_ <=> b.index_;
        }

      private:
        const EventList* list_ = nullptr;
        std::size_t index_ = 0;
    };

    EventList() = default;
    EventList(std::initializer_list<UnifiedEvent> events);
    EventList(const EventList&) = default;
    EventList& operator=(const EventList&) = default;
    // Leave an empty list behind.
    EventList(EventList&& other) noexcept
        : chunks_(std::exchange(other.chunks_, {})), size_(std::exchange(other.size_, 0)) {}
    EventList& operator=(EventList&& other) noexcept {
        chunks_ = std::exchange(other.chunks_, {});
        size_ = std::exchange(other.size_, 0);
        return *this;
    }
    ~EventList() = default;

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const UnifiedEvent& operator[](std::size_t i) const {
        return (*chunks_[i / chunkSize])[i % chunkSize];
    }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, size_}; }

    void append(const UnifiedEvent& event) {
        const std::size_t slot = size_ % chunkSize;
        if (slot == 0 || chunks_.back().use_count() > 1) [[unlikely]]
            makeRoom();
        (*chunks_.back())[slot] = event;
        ++size_;
    }
    // Subtracts `seconds` from the time of every event from index `first` on.
    void shiftTimes(std::size_t first, double seconds);
    void clear();

    // Whether `other` is a copy taken of this list since its last change, told by the storage that
    // they share: a few microseconds, whatever the number of events.
    bool isSnapshot(const EventList& other) const;
    // Same length and equal events, every field compared exactly.
    friend bool operator==(const EventList& a, const EventList& b);

  private:
    using Chunk = std::array<UnifiedEvent, chunkSize>;

    // Puts a chunk at the end that may be written and has a free slot.
    void makeRoom();

    std::vector<std::shared_ptr<Chunk>> chunks_;
    std::size_t size_ = 0;
};

}  // namespace ravelin
