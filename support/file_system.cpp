// Away from Windows, where tools and tests of the portable half run.
#ifndef _WIN32

#include "support/file_system.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace ravelin {

namespace fs = std::filesystem;

std::string environmentText(const char* name) {
    const char* value = std::getenv(name);
    std::string text = value == nullptr ? "" : value;
    return text.size() < pathBufferSize ? text : std::string();
}

bool fileExists(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

void createFolder(const std::string& path) {
    std::error_code ignored;
    fs::create_directory(path, ignored);
}

bool moveFile(const std::string& from, const std::string& to) {
    std::error_code error;
    if (fs::exists(to, error)) return false;
    fs::rename(from, to, error);
    if (error != std::errc::cross_device_link) return !error;
    return fs::copy_file(from, to, error) && fs::remove(from, error);
}

bool copyFile(const std::string& from, const std::string& to) {
    std::error_code error;
    return fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
}

bool isInUse(const std::string& /*path*/) {
    return false;  // files are not locked against reading here
}

bool deleteFile(const std::string& path) {
    std::error_code error;
    return !fs::is_directory(path, error) && fs::remove(path, error);
}

std::optional<FileStamp> fileStamp(const std::string& path) {
    std::error_code noTime;
    std::error_code noLength;
    const auto written = fs::last_write_time(path, noTime);
    const auto length = fs::file_size(path, noLength);
    if (noTime || noLength) return std::nullopt;
    return FileStamp{written.time_since_epoch().count(), static_cast<std::int64_t>(length)};
}

std::string executablePath() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).string();
}

}  // namespace ravelin

#endif
