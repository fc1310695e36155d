// The few things that the program asks of the file system beside reading and writing a file.
//
// Paths are 8-bit texts in the code page of the process, which is UTF-8 from Windows 10 1903 on.
// Failures are values, never exceptions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ravelin {

#ifdef _WIN32
inline constexpr char pathSeparator = '\\';
#else
inline constexpr char pathSeparator = '/';
#endif

// The longest path and the longest environment text that is used, its end included.
inline constexpr std::size_t pathBufferSize = 260;

// The value of an environment variable; empty when it is unset, empty, or does not fit into a
// path buffer.
std::string environmentText(const char* name);

// A file of that name exists; a folder does not count.
bool fileExists(const std::string& path);

// One level, with default security. A folder that exists already and every other failure are
// ignored: whoever opens a file in it sees what became of it.
void createFolder(const std::string& path);

// Moves a file, across volumes as a copy and a deletion. Never replaces what is at the target.
bool moveFile(const std::string& from, const std::string& to);

// Copies a file, replacing what is at the target.
bool copyFile(const std::string& from, const std::string& to);

bool deleteFile(const std::string& path);

// Whether another program keeps the file from being read at this moment, which usually passes.
bool isInUse(const std::string& path);

// Tells one state of a file from another: when it was written last, in units of the system, and its
// length.
struct FileStamp {
    std::int64_t written = 0;
    std::int64_t length = 0;
    bool operator==(const FileStamp&) const = default;
};
// Nothing when there is no such file.
std::optional<FileStamp> fileStamp(const std::string& path);

// The full path of the running executable; empty when it cannot be told.
std::string executablePath();

}  // namespace ravelin
