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

// The live tool settings as a profile settings line.
std::string captureToolSettings();
// Restores the defaults of the clicker and key spammer; recorder and player options stay.
void resetToolSettings();
// Stores the live tool settings in the current profile. Called after every change of a setting, a
// target, the chord flag or the fixed point; takes profileMutex for the store alone.
void syncCurrentProfile();

}  // namespace ravelin
