#include "support/text_file.h"

#include <algorithm>
#include <cstring>

namespace ravelin {
namespace {

// Bytes on their way to a file, handed over a block at a time.
class BlockWriter {
  public:
    explicit BlockWriter(std::FILE* file) : file_(file) {}

    void add(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto count = std::min(bytes.size(), blockSize - used_);
            std::memcpy(block_.get() + used_, bytes.data(), count);
            used_ += count;
            bytes.remove_prefix(count);
            if (used_ == blockSize) flush();
        }
    }

    bool flush() {
        ok_ = std::fwrite(block_.get(), 1, used_, file_) == used_ && ok_;
        used_ = 0;
        return ok_;
    }

  private:
    static constexpr std::size_t blockSize = 1 << 16;
    std::FILE* file_;
    std::unique_ptr<char[]> block_ = std::make_unique_for_overwrite<char[]>(blockSize);
    std::size_t used_ = 0;
    bool ok_ = true;
};

}  // namespace

bool writeTextFile(const std::string& path, std::string_view text) {
    const File file(std::fopen(path.c_str(), "wb"));
    if (!file) return false;
    // The writer's blocks are large enough: a second buffer would only copy them once more.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    BlockWriter writer(file.get());
    while (!text.empty()) {
        const auto end = text.find('\n');
        writer.add(text.substr(0, end));
        if (end == std::string_view::npos) break;
        writer.add("\r\n");
        text.remove_prefix(end + 1);
    }
    return writer.flush();
}

}  // namespace ravelin
