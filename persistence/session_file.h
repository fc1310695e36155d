// The session file: the tool settings, hotkeys and every profile with its events, kept between
// runs.
#pragma once

#include <atomic>
#include <string>

namespace ravelin {

// Set once at start, before any other thread exists.
inline std::string sessionPath;

// Set once the profiles stand. A crash before that has nothing to save, and would save it over an
// intact file.
inline std::atomic<bool> sessionStands{false};

// Set once everything was saved for the last time. What is on disk stays as it is from then on.
inline std::atomic<bool> savesAreOver{false};

// Replaces the profile list with the file's. Returns true when at least one profile was read;
// otherwise the list stays as it was, though the file's settings line may have been applied. Called
// once at start, before the tools run.
//
// A file that gave no profile, or could not be read to its end, is copied to its name with
// ".refused" before the first save. One that was read is copied to its name with ".start", for the
// user to go back to; the program never reads that. A file that stops in the middle of a line was
// cut off by a crash or a power cut: the copy of the start before stays.
bool loadSession();

// Rewrites the file, in one go once the text is complete. Any thread; saves run one after another.
// Skipped when another thread holds profileMutex at this moment, and silent when the file cannot be
// opened. Throws std::bad_alloc, with the file as it was.
void saveSession();
// The same for the last time: waits for whoever holds the profiles, and lets no later save of
// anything begin. For the end of the user's session, after which the process may be ended at any
// moment.
void saveSessionForGood();
// The same for a process that crashes. Waits up to a second for a save that is under way; one that
// crashed itself cannot be waited for.
void saveSessionFromCrash() noexcept;

}  // namespace ravelin
