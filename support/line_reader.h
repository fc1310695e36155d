// Reads text line by line in blocks, so that a file of any size takes no more memory than its
// longest line.
//
// A line ends at a line feed; one carriage return before it is no part of the line. A last line
// without a line feed is a line like the others, and no further line follows a last line feed.
// Every other byte stands for itself: zero bytes and Ctrl+Z end nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ravelin {

// A carriage return at the very end of the text, with no line feed after it.
enum class LoneReturn : std::uint8_t {
    kept,     // as reading in text mode does
    removed,  // for formats that take one off the end of every line
};

class LineReader {
  public:
    // Stores up to `size` bytes at `buffer` and returns how many: none at the end of the text,
    // nothing when it cannot be read on.
    using Source = std::function<std::optional<std::size_t>(char* buffer, std::size_t size)>;
    static constexpr std::size_t defaultBlockSize = 1 << 18;

    explicit LineReader(Source source, std::size_t blockSize = defaultBlockSize,
                        LoneReturn loneReturn = LoneReturn::kept);

    // Gives the next line, valid until the next call; false at the end or where reading failed.
    bool next(std::string_view& line);

    // Whether the text was read no further than to a failure.
    bool failed() const { return failed_; }
    // Whether the last line that next() gave ended with a line feed: a file that was cut off while
    // it was written hardly ever does.
    bool endsWithLineFeed() const { return lineFeedSeen_; }

  private:
    bool fill();

    Source source_;
    std::size_t capacity_;
    std::unique_ptr<char[]> buffer_;
    std::size_t begin_ = 0;  // of the bytes that no line has been made of
    std::size_t end_ = 0;
    LoneReturn loneReturn_;
    bool failed_ = false;
    bool lineFeedSeen_ = false;
};

// The lines of a file; nothing when it cannot be opened. A folder that can be opened, as away from
// Windows, cannot be read.
std::optional<LineReader> openLines(const std::string& path,
                                    LoneReturn loneReturn = LoneReturn::kept);
// The lines of a text that outlives the reader.
LineReader linesOf(std::string_view text, LoneReturn loneReturn = LoneReturn::kept);

}  // namespace ravelin
