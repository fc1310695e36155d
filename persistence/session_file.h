// The session file: the tool settings, hotkeys and every profile with its events, kept between
// runs.
#pragma once

#include <string>

namespace ravelin {

// Set once at start, before any other thread exists.
inline std::string sessionPath;

// Replaces the profile list with the file's. True when at least one profile was read; otherwise
// the list stays as it was, though the file's settings line may have been applied. Called at
// start, before the tools run.
bool loadSession();

// Rewrites the file. Any thread; saves run one after another. Skipped when another thread holds
// profileMutex at this moment, and silent when the file cannot be opened.
void saveSession();
// The same for a process that crashes: skipped when a save is under way, which may be the one that
// crashed.
void saveSessionFromCrash() noexcept;

}  // namespace ravelin
