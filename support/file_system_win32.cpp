#include "support/file_system.h"

#include <windows.h>

#include <array>

#include "support/utf.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

// A length of zero is a failure and one of the whole buffer does not fit.
std::string textOf(const std::array<wchar_t, pathBufferSize>& buffer, DWORD length) {
    return length < buffer.size() ? narrow({buffer.data(), length}) : std::string();
}

std::int64_t wide(DWORD high, DWORD low) {
    return static_cast<std::int64_t>((std::uint64_t{high} << 32) | low);
}

}  // namespace

std::string environmentText(const char* name) {
    // The wide call: with UTF-8 for a code page, the 8-bit one gives a wrong length under Wine.
    std::array<wchar_t, pathBufferSize> buffer{};
    const DWORD length = GetEnvironmentVariableW(widen(name).c_str(), buffer.data(),
                                                 static_cast<DWORD>(buffer.size()));
    return textOf(buffer, length);
}

bool fileExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void createFolder(const std::string& path) {
    CreateDirectoryA(path.c_str(), nullptr);
}

bool moveFile(const std::string& from, const std::string& to) {
    return MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_COPY_ALLOWED) != 0;
}

bool copyFile(const std::string& from, const std::string& to) {
    return CopyFileA(from.c_str(), to.c_str(), FALSE) != 0;
}

bool isInUse(const std::string& path) {
    const FileHandle file(CreateFileA(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

bool deleteFile(const std::string& path) {
    return DeleteFileA(path.c_str()) != 0;
}

std::optional<FileStamp> fileStamp(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0 ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    return FileStamp{wide(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime),
                     wide(data.nFileSizeHigh, data.nFileSizeLow)};
}

std::string executablePath() {
    std::array<wchar_t, pathBufferSize> buffer{};
    const DWORD length =
        GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return textOf(buffer, length);
}

}  // namespace ravelin
