// Plain text files: 8-bit text with CR LF line ends on disk, on every system.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace ravelin {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

inline constexpr std::string_view lineEnd = "\r\n";

// Rewrites the file in place with these very bytes. False when it cannot be opened (nothing has
// changed then) or not be written in full.
bool writeFile(const std::string& path, std::string_view bytes);

// The same with the line end on disk for every line feed.
bool writeTextFile(const std::string& path, std::string_view text);

}  // namespace ravelin
