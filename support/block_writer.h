// Writes text in blocks, so that a file of any size takes no more memory than one of them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace ravelin {

class BlockWriter {
  public:
    // Takes the next block and says whether it arrived in full.
    using Target = std::function<bool(std::string_view block)>;
    static constexpr std::size_t blockSize = 1 << 16;

    explicit BlockWriter(Target target);

    void append(std::string_view text);
    // Room for `size` characters, at most a block. What was filled of it becomes text by
    // `filledTo`, before anything else is called.
    char* room(std::size_t size) {
        if (blockSize - used_ < size) [[unlikely]]
            flush();
        return block_.get() + used_;
    }
    void filledTo(const char* end) { used_ = static_cast<std::size_t>(end - block_.get()); }

    // Hands on what is left. False when a block did not arrive; none was handed on after it.
    bool finish();

  private:
    void flush();

    Target target_;
    std::unique_ptr<char[]> block_;
    std::size_t used_ = 0;
    bool arrived_ = true;
};

// Rewrites the file in place with what `write` writes. False when it cannot be opened (nothing has
// changed then and `write` was not called) or not be written in full.
bool writeInBlocks(const std::string& path, const std::function<void(BlockWriter&)>& write);

}  // namespace ravelin
