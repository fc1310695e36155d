#include "support/block_writer.h"

#include <utility>

#include "support/text_file.h"

namespace ravelin {

BlockWriter::BlockWriter(Target target)
    : target_(std::move(target)), block_(std::make_unique_for_overwrite<char[]>(blockSize)) {}

void BlockWriter::append(std::string_view text) {
    while (!text.empty()) {
        if (used_ == blockSize) flush();
        const std::size_t count = text.copy(block_.get() + used_, blockSize - used_);
        used_ += count;
        text.remove_prefix(count);
    }
}

void BlockWriter::flush() {
    if (used_ > 0) arrived_ = arrived_ && target_({block_.get(), used_});
    used_ = 0;
}

bool BlockWriter::finish() {
    flush();
    return arrived_;
}

bool writeInBlocks(const std::string& path, const std::function<void(BlockWriter&)>& write) {
    std::FILE* target = nullptr;
    // Before the file is opened, which empties it: without memory for a block it stays as it was.
    BlockWriter writer([&target](std::string_view block) {
        return std::fwrite(block.data(), 1, block.size(), target) == block.size();
    });
    File file(std::fopen(path.c_str(), "wb"));
    if (!file) return false;
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    target = file.get();
    write(writer);
    const bool written = writer.finish();
    return std::fclose(file.release()) == 0 && written;
}

}  // namespace ravelin
