// Tracking profiles: named bundles of tool settings with one recorded macro each.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "input/event_list.h"

namespace ravelin {

inline constexpr char defaultProfileName[] = "Default Tracking Profile";
inline constexpr std::size_t profileCap = 3;

struct Profile {
    std::string name;
    std::string settingsLine;  // the 20-field profile settings line; empty means the defaults
    EventList events;
};

// Guards `profiles`, `currentProfile` and every profile's events. Held for an append, a snapshot or
// a change of the list, never while text is formatted or parsed.
inline std::mutex profileMutex;
inline std::vector<Profile> profiles;
inline std::int32_t currentProfile = -1;  // outside the list means none

// The current profile, or null. The caller holds profileMutex.
Profile* lockedCurrentProfile();

// What an empty settings line stands for.
inline constexpr std::string_view defaultSettingsLine =
    "0,0,0,5,0,0,1,10,0,0,0,0,0,0,5,1,10,32,32,0";
// The live tool settings as a profile settings line.
std::string captureToolSettings();
// Loads a profile settings line into the live settings, field by field up to the first one that is
// no number; a line of fewer than 18 fields changes nothing. Without a list of targets the key
// spam key becomes the only one.
void applyToolSettings(std::string_view line);
// Restores the defaults of the clicker and key spammer; recorder and player options stay.
void resetToolSettings();
// Stores the live tool settings in the current profile. Called after every change of a setting, a
// target, the chord flag or the fixed point; takes profileMutex for the store alone.
void syncCurrentProfile();

// Adds a profile with the default name and makes it current: the start without a session.
void addDefaultProfile();
// Guarantees a profile with the default name, in front of all others, beyond the cap if need be.
// The current profile stays current.
void ensureDefaultProfile();

// The page's methods, on the user-interface thread; the arguments are the page's raw text. What
// they refuse leaves everything as it was. Adding, switching and deleting are refused while a
// macro is played.
std::string getProfiles();
// [name]: a copy of the live settings without events, made current. Names need not be unique.
void addProfile(std::string_view args);
// [index]: makes a profile current and its settings live.
void switchProfile(std::string_view args);
// Removes the current profile, but never the last one; one of the default name is cleared instead.
void deleteProfile();
// Empties the current profile's events and restores the default settings; refused while recording.
void clearProfile();

}  // namespace ravelin
