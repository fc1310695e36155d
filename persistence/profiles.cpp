#include "persistence/profiles.h"

#include <algorithm>

#include "input/tool_settings.h"

namespace ravelin {

Profile* lockedCurrentProfile() {
    const auto index = static_cast<std::size_t>(currentProfile);
    return currentProfile >= 0 && index < profiles.size() ? &profiles[index] : nullptr;
}

std::string captureToolSettings() {
    const ToolSettings& s = toolSettings;
    std::string line;
    for (const auto* field :
         {&s.sh, &s.sm, &s.ss, &s.sms, &s.sbtn, &s.stype, &s.rptMode, &s.rptTimes, &s.locMode,
          &s.fixedX, &s.fixedY, &s.ksh, &s.ksm, &s.kss, &s.ksms, &s.ksRptMode, &s.ksRptTimes})
        line += std::to_string(field->load()) + ',';
    line += std::to_string(keySpamTargets.first.load()) + ',';
    const auto count = std::clamp(keySpamTargets.count.load(), 0, KeySpamTargets::cap);
    for (std::int32_t i = 0; i < count; ++i) {
        if (i > 0) line += '|';
        line += std::to_string(keySpamTargets.keys[static_cast<std::size_t>(i)].load());
    }
    line += keySpamTargets.chord.load() ? ",1" : ",0";
    return line;
}

void resetToolSettings() {
    ToolSettings& s = toolSettings;
    for (auto* field : {&s.sh, &s.sm, &s.ss, &s.sbtn, &s.stype, &s.locMode, &s.fixedX, &s.fixedY,
                        &s.ksh, &s.ksm, &s.kss})
        field->exchange(0);
    for (auto* field : {&s.sms, &s.ksms})
        field->exchange(5);
    for (auto* field : {&s.rptMode, &s.ksRptMode})
        field->exchange(1);
    for (auto* field : {&s.rptTimes, &s.ksRptTimes})
        field->exchange(10);
    keySpamTargets.keys[0].exchange(32);
    keySpamTargets.count.exchange(1);
    keySpamTargets.first.exchange(32);
    keySpamTargets.chord.exchange(false);
}

void syncCurrentProfile() {
    auto line = captureToolSettings();
    const std::lock_guard lock(profileMutex);
    if (Profile* profile = lockedCurrentProfile()) profile->settingsLine = std::move(line);
}

}  // namespace ravelin
