#include "persistence/profiles.h"

#include <algorithm>
#include <utility>

#include "input/engine_state.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

// Makes a stored settings line live; an empty one stands for the defaults.
void makeLive(const std::string& settingsLine) {
    if (settingsLine.empty()) {
        resetToolSettings();
    } else {
        applyToolSettings(settingsLine);
    }
}

}  // namespace

Profile* lockedCurrentProfile() {
    const auto index = static_cast<std::size_t>(currentProfile);
    return currentProfile >= 0 && index < profiles.size() ? &profiles[index] : nullptr;
}

void syncCurrentProfile() {
    auto line = captureToolSettings();
    const std::lock_guard lock(profileMutex);
    if (Profile* profile = lockedCurrentProfile()) profile->settingsLine = std::move(line);
}

void addDefaultProfile() {
    const std::lock_guard lock(profileMutex);
    profiles.push_back(Profile{defaultProfileName, {}, {}});
    currentProfile = static_cast<std::int32_t>(profiles.size()) - 1;
}

void ensureDefaultProfile() {
    const std::lock_guard lock(profileMutex);
    const auto isDefault = [](const Profile& profile) {
        return profile.name == defaultProfileName;
    };
    if (std::any_of(profiles.begin(), profiles.end(), isDefault)) return;
    currentProfile = profiles.empty() ? 0 : currentProfile + 1;
    profiles.insert(profiles.begin(), Profile{defaultProfileName, {}, {}});
}

std::string getProfiles() {
    const std::lock_guard lock(profileMutex);
    std::string json = "{\"current\":" + std::to_string(currentProfile) + ",\"names\":[";
    for (const auto& profile : profiles) {
        if (&profile != profiles.data()) json += ',';
        json += jsonQuote(profile.name);
    }
    json += "],\"cap\":" + std::to_string(profileCap);
    json += ",\"defaultName\":" + jsonQuote(defaultProfileName) + '}';
    return json;
}

void addProfile(std::string_view args) {
    auto name = flattenArgs(args);
    if (name.empty() || engine.playing.load()) return;
    auto line = captureToolSettings();
    const std::lock_guard lock(profileMutex);
    if (profiles.size() >= profileCap) return;
    profiles.push_back(Profile{std::move(name), std::move(line), {}});
    currentProfile = static_cast<std::int32_t>(profiles.size()) - 1;
}

void switchProfile(std::string_view args) {
    if (engine.playing.load()) return;
    const auto index = toInt(flattenArgs(args));
    if (!index || index.value < 0) return;
    std::string line;
    {
        const std::lock_guard lock(profileMutex);
        if (static_cast<std::size_t>(index.value) >= profiles.size()) return;
        currentProfile = index.value;
        line = profiles[static_cast<std::size_t>(index.value)].settingsLine;
    }
    makeLive(line);
}

void deleteProfile() {
    if (engine.playing.load()) return;
    EventList discarded;  // its memory is given back after the lock
    std::string line;
    {
        const std::lock_guard lock(profileMutex);
        Profile* const profile = lockedCurrentProfile();
        if (profile == nullptr) return;
        if (profile->name == defaultProfileName) {
            resetToolSettings();
            profile->settingsLine = captureToolSettings();
            discarded = std::exchange(profile->events, {});
            return;
        }
        if (profiles.size() < 2) return;
        discarded = std::move(profile->events);
        profiles.erase(profiles.begin() + currentProfile);
        currentProfile = std::min(currentProfile, static_cast<std::int32_t>(profiles.size()) - 1);
        line = profiles[static_cast<std::size_t>(currentProfile)].settingsLine;
    }
    makeLive(line);
}

void clearProfile() {
    if (engine.recording.load()) return;
    resetToolSettings();
    auto line = captureToolSettings();
    EventList discarded;
    const std::lock_guard lock(profileMutex);
    if (Profile* profile = lockedCurrentProfile()) {
        profile->settingsLine = std::move(line);
        discarded = std::exchange(profile->events, {});
    }
}

}  // namespace ravelin
