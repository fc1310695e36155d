#include "persistence/session_file.h"

#include <mutex>
#include <optional>
#include <utility>

#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "persistence/session_text.h"
#include "support/block_writer.h"
#include "support/line_reader.h"

namespace ravelin {
namespace {

// Held from the snapshot to the last byte, so that an older state never overwrites a newer one.
std::mutex saveMutex;

// Copies of a million events share their memory with the original: the lock is held for a moment.
std::optional<Session> snapshot() {
    Session session;
    session.settingsLine = sessionSettingsLine();
    const std::unique_lock lock(profileMutex, std::try_to_lock);
    if (!lock) return std::nullopt;
    session.current = currentProfile;
    session.profiles = profiles;
    return session;
}

void lockedSave() {
    const auto session = snapshot();
    if (!session) return;
    writeInBlocks(sessionPath, [&session](BlockWriter& out) { writeSession(out, *session); });
}

}  // namespace

bool loadSession() {
    auto lines = openLines(sessionPath);
    if (!lines) return false;
    auto read = readSession(*lines);
    if (!read) return false;
    applySessionSettings(read->settingsLine);
    Session session = std::move(*read);
    if (session.profiles.empty()) return false;
    const auto count = static_cast<std::int32_t>(session.profiles.size());
    if (session.current < 0 || session.current >= count) session.current = 0;
    auto& line = session.profiles[static_cast<std::size_t>(session.current)].settingsLine;
    if (line.empty()) line = captureToolSettings();
    const std::lock_guard lock(profileMutex);
    profiles.swap(session.profiles);
    currentProfile = session.current;
    return true;
}

void saveSession() {
    const std::lock_guard lock(saveMutex);
    lockedSave();
}

void saveSessionFromCrash() noexcept {
    try {
        const std::unique_lock lock(saveMutex, std::try_to_lock);
        if (lock) lockedSave();
    } catch (...) {
        // Nothing can be done for the session any more.
    }
}

}  // namespace ravelin
