// The program's process-wide state as it is at start.
#pragma once

#include <memory>
#include <mutex>

#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "persistence/app_settings.h"
#include "persistence/profiles.h"

namespace ravelin::test {

template <class T>
void startAfresh(T& state) {
    std::destroy_at(&state);
    std::construct_at(&state);
}

inline void resetLiveState() {
    startAfresh(engine);
    startAfresh(hotkeys);
    startAfresh(toolSettings);
    startAfresh(keySpamTargets);
    startAfresh(appSettings);
    startAfresh(appSettingEffects);
    const std::lock_guard lock(profileMutex);
    profiles.clear();
    currentProfile = -1;
}

}  // namespace ravelin::test
