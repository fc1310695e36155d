#include "devtools_file.h"

#include <atomic>
#include <string>

#include "log.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

void writeWhole(const std::string& unixPath, const std::string& text) {
    const std::wstring path = fromUnixPath(unixPath);
    const std::wstring draft = path + L".new";
    HANDLE file = CreateFileW(draft.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    const bool complete =
        file != INVALID_HANDLE_VALUE &&
        WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (!complete || MoveFileExW(draft.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
        logLine("cannot write " + unixPath + ": error " + std::to_string(GetLastError()));
    }
}

}  // namespace

void publishDevTools(BrowserProcess& process, const std::string& target) {
    const std::string pid = std::to_string(GetCurrentProcessId());
    const std::string text = std::to_string(process.port()) + "\n" + target + "\n" + pid + "\n" +
                             toUtf8(GetCommandLineW()) + "\n";
    writeWhole(process.profile() + "/devtools.txt", text);

    const std::string folder = environmentText(L"RAVELIN_TEST_DEVTOOLS_DIR");
    if (folder.empty()) return;
    static std::atomic<int> views = 0;
    const int number = ++views;
    const std::string name = number == 1 ? pid : pid + "-" + std::to_string(number);
    const std::string path = folder + "/" + name + ".port";
    process.removeAtEnd(path);
    writeWhole(path, text);
}

}  // namespace ravelin::browser
