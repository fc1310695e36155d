#include "support/text_file.h"

#include <algorithm>

namespace ravelin {

bool writeFile(const std::string& path, std::string_view bytes) {
    File file(std::fopen(path.c_str(), "wb"));
    if (!file) return false;
    // In one go: a buffer would only cut it into blocks.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    // What is still in a buffer may fail to be written only now.
    return std::fclose(file.release()) == 0 && written;
}

bool writeTextFile(const std::string& path, std::string_view text) {
    std::string bytes;
    const auto lineFeeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    bytes.reserve(text.size() + lineFeeds);
    for (const char c : text) {
        if (c == '\n') {
            bytes += lineEnd;
        } else {
            bytes += c;
        }
    }
    return writeFile(path, bytes);
}

}  // namespace ravelin
