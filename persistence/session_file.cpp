#include "persistence/session_file.h"

#include <chrono>
#include <mutex>
#include <new>
#include <optional>
#include <thread>

#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "persistence/session_text.h"
#include "persistence/unread_file.h"
#include "support/file_system.h"
#include "support/line_reader.h"
#include "support/text_file.h"

namespace ravelin {
namespace {

// Held from the snapshot to the last byte, so that an older state never overwrites a newer one.
std::timed_mutex saveMutex;
std::atomic<std::thread::id> saver;  // who holds it
// Guarded by saveMutex.
UnreadFile refusedSession;

// Copies of a million events share their memory with the original: the lock is held for a moment.
// Nothing when somebody else holds it, unless `wait`.
std::optional<Session> snapshot(bool wait) {
    Session session;
    session.settingsLine = sessionSettingsLine();
    std::unique_lock lock(profileMutex, std::defer_lock);
    if (wait)
        lock.lock();
    else if (!lock.try_lock())
        return std::nullopt;
    session.current = currentProfile;
    session.profiles = profiles;
    return session;
}

struct SaverMark {
    SaverMark() { saver.store(std::this_thread::get_id()); }
    SaverMark(const SaverMark&) = delete;
    SaverMark& operator=(const SaverMark&) = delete;
    ~SaverMark() { saver.store({}); }
};

// The caller holds saveMutex.
void lockedSave(bool wait = false) {
    if (savesAreOver.load()) return;
    const SaverMark mark;
    const auto session = snapshot(wait);
    if (!session) return;
    // Complete before the file is opened, which empties it.
    const std::string text = sessionText(*session);
    if (refusedSession.keepCopy()) writeFile(sessionPath, text);
}

// Reads the file to its end; nothing when it holds no profile. `cut` tells that it stops in the
// middle of a line.
std::optional<Session> readFile(bool& cut) {
    auto lines = openLines(sessionPath);
    if (!lines) return std::nullopt;
    auto session = readSession(*lines);
    if (lines->failed()) return std::nullopt;
    cut = !lines->endsWithLineFeed();
    return session;
}

// The same without the memory for it, which counts as a file that cannot be read.
std::optional<Session> readFileOrNothing(bool& cut) {
    try {
        return readFile(cut);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

}  // namespace

bool loadSession() {
    bool cut = false;
    auto session = readFileOrNothing(cut);
    if (session) applySessionSettings(session->settingsLine);
    if (!session || session->profiles.empty()) {
        const std::lock_guard lock(saveMutex);
        refusedSession.note(sessionPath, sessionPath + ".refused");
        return false;
    }
    if (!cut) copyFile(sessionPath, sessionPath + ".start");
    const auto count = static_cast<std::int32_t>(session->profiles.size());
    if (session->current < 0 || session->current >= count) session->current = 0;
    auto& line = session->profiles[static_cast<std::size_t>(session->current)].settingsLine;
    if (line.empty()) line = captureToolSettings();
    const std::lock_guard lock(profileMutex);
    profiles.swap(session->profiles);
    currentProfile = session->current;
    return true;
}

void saveSession() {
    const std::lock_guard lock(saveMutex);
    lockedSave();
}

void saveSessionForGood() {
    const std::lock_guard lock(saveMutex);
    lockedSave(true);
    savesAreOver.exchange(true);
}

void saveSessionFromCrash() noexcept {
    try {
        if (!sessionStands.load() || saver.load() == std::this_thread::get_id()) return;
        const std::unique_lock lock(saveMutex, std::chrono::seconds(1));
        if (lock) lockedSave();
    } catch (...) {
        // Nothing can be done for the session any more.
    }
}

}  // namespace ravelin
