// Reads text line by line in blocks, so that a file of any size takes no more memory than its
// longest line.
//
// A line ends at a line feed; one carriage return before it is no part of the line, nor is one at
// the very end of the text. A last line without a line feed is a line like the others, and no
// further line follows a last line feed. Every other byte stands for itself: zero bytes and
// Ctrl+Z end nothing.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ravelin {

class LineReader {
  public:
    // Stores up to `size` bytes at `buffer` and says how many; none at the end of the text.
    using Source = std::function<std::size_t(char* buffer, std::size_t size)>;
    static constexpr std::size_t defaultBlockSize = 1 << 18;

    explicit LineReader(Source source, std::size_t blockSize = defaultBlockSize);

    // The next line, valid until the next call; false at the end.
    bool next(std::string_view& line);

  private:
    bool fill();

    Source source_;
    std::size_t capacity_;
    std::unique_ptr<char[]> buffer_;
    std::size_t begin_ = 0;  // of the bytes that no line has been made of
    std::size_t end_ = 0;
};

// The lines of a file; none when it cannot be opened.
std::optional<LineReader> openLines(const std::string& path);
// The lines of a text that outlives the reader.
LineReader linesOf(std::string_view text);

}  // namespace ravelin
