#include "support/line_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "support/text_file.h"

namespace ravelin {
namespace {

std::string_view withoutReturn(const char* begin, const char* end) {
    if (begin != end && end[-1] == '\r') --end;
    return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

LineReader::LineReader(Source source, std::size_t blockSize, LoneReturn loneReturn)
    : source_(std::move(source)),
      capacity_(blockSize),
      buffer_(std::make_unique_for_overwrite<char[]>(blockSize)),
      loneReturn_(loneReturn) {}

bool LineReader::next(std::string_view& line) {
    std::size_t searched = begin_;
    do {
        const char* const from = buffer_.get() + searched;
        if (const void* found = std::memchr(from, '\n', end_ - searched)) {
            const auto* const lineFeed = static_cast<const char*>(found);
            line = withoutReturn(buffer_.get() + begin_, lineFeed);
            begin_ = static_cast<std::size_t>(lineFeed - buffer_.get()) + 1;
            lineFeedSeen_ = true;
            return true;
        }
        // What was searched once is not searched again, however long the line grows.
        searched = end_ - begin_;
    } while (fill());
    if (begin_ == end_ || failed_) return false;
    const char* const begin = buffer_.get() + begin_;
    const char* const end = buffer_.get() + end_;
    line = loneReturn_ == LoneReturn::removed ? withoutReturn(begin, end)
                                              : std::string_view(begin, end);
    begin_ = end_;
    lineFeedSeen_ = false;
    return true;
}

// Moves the unfinished line to the front of the buffer and reads on behind it.
bool LineReader::fill() {
    const std::size_t rest = end_ - begin_;
    if (rest == capacity_) {
        auto larger = std::make_unique_for_overwrite<char[]>(capacity_ * 2);
        std::memcpy(larger.get(), buffer_.get() + begin_, rest);
        buffer_ = std::move(larger);
        capacity_ *= 2;
    } else {
        std::memmove(buffer_.get(), buffer_.get() + begin_, rest);
    }
    begin_ = 0;
    const auto read = source_(buffer_.get() + rest, capacity_ - rest);
    failed_ = !read;
    end_ = rest + read.value_or(0);
    return end_ > rest;
}

std::optional<LineReader> openLines(const std::string& path, LoneReturn loneReturn) {
    std::shared_ptr<std::FILE> file(File(std::fopen(path.c_str(), "rb")));
    if (!file) return std::nullopt;
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return LineReader(
        [file](char* buffer, std::size_t size) -> std::optional<std::size_t> {
            const std::size_t count = std::fread(buffer, 1, size, file.get());
            if (std::ferror(file.get()) != 0) return std::nullopt;
            return count;
        },
        LineReader::defaultBlockSize, loneReturn);
}

LineReader linesOf(std::string_view text, LoneReturn loneReturn) {
    return LineReader(
        [text](char* buffer, std::size_t size) mutable {
            const auto count = text.copy(buffer, size);
            text.remove_prefix(count);
            return count;
        },
        LineReader::defaultBlockSize, loneReturn);
}

}  // namespace ravelin
