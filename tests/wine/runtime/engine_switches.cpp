#include "engine_switches.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "wide_text.h"

namespace ravelin::browser {
namespace {

std::string firstLineOf(const std::string& unixPath) {
    const DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE file = CreateFileW(fromUnixPath(unixPath).c_str(), GENERIC_READ, sharing, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    char text[64] = "";
    DWORD size = 0;
    ReadFile(file, text, sizeof text, &size, nullptr);
    CloseHandle(file);
    const std::string_view read(text, size);
    return std::string(read.substr(0, read.find_first_of("\r\n")));
}

}  // namespace

EngineMood engineMood() {
    constexpr std::string_view refuse = "refuse ";
    const std::string path = environmentText(L"RAVELIN_TEST_ENGINE");
    const std::string line = path.empty() ? std::string() : firstLineOf(path);
    if (line == "silent") return {Reception::ignored, S_OK};
    if (!line.starts_with(refuse)) return {};
    std::uint32_t code = 0;
    std::from_chars(line.data() + refuse.size(), line.data() + line.size(), code, 16);
    return {Reception::refused, static_cast<HRESULT>(code)};
}

}  // namespace ravelin::browser
