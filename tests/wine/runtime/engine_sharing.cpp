#include "engine_sharing.h"

#include <windows.h>

#include <mutex>

#include "log.h"
#include "module.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

// One file a process that takes part, named for its version and held open until its end. Whatever
// ended a process, a file that can be deleted is nobody's.
constexpr wchar_t noteHead[] = L"running-";

bool othersTakePart(const std::wstring& dataFolder, const std::wstring& ownHead) {
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW((dataFolder + L'\\' + noteHead + L'*').c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    bool others = false;
    do {
        const std::wstring name = found.cFileName;
        if (name.starts_with(ownHead)) continue;
        if (DeleteFileW((dataFolder + L'\\' + name).c_str()) != 0) continue;
        logLine("another engine runs: " + toUtf8(name));
        others = true;
    } while (!others && FindNextFileW(search, &found) != 0);
    FindClose(search);
    return others;
}

}  // namespace

bool joinBrowser(const std::wstring& dataFolder) {
    static std::mutex mutex;
    static HANDLE note = INVALID_HANDLE_VALUE;
    const std::scoped_lock lock(mutex);
    if (note != INVALID_HANDLE_VALUE) return true;
    const std::wstring ownHead = noteHead + engineVersion() + L'-';
    if (othersTakePart(dataFolder, ownHead)) return false;
    CreateDirectoryW(dataFolder.c_str(), nullptr);
    note =
        CreateFileW((dataFolder + L'\\' + ownHead + std::to_wstring(GetCurrentProcessId())).c_str(),
                    GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    return true;
}

}  // namespace ravelin::browser
