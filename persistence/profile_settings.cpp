// The profile settings line: the clicker's and key spammer's settings in twenty fields.
#include <algorithm>
#include <array>

#include "input/tool_settings.h"
#include "persistence/key_codes.h"
#include "persistence/profiles.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

using IntField = std::atomic<std::int32_t> ToolSettings::*;

constexpr IntField intFields[] = {
    &ToolSettings::sh,        &ToolSettings::sm,         &ToolSettings::ss,
    &ToolSettings::sms,       &ToolSettings::sbtn,       &ToolSettings::stype,
    &ToolSettings::rptMode,   &ToolSettings::rptTimes,   &ToolSettings::locMode,
    &ToolSettings::fixedX,    &ToolSettings::fixedY,     &ToolSettings::ksh,
    &ToolSettings::ksm,       &ToolSettings::kss,        &ToolSettings::ksms,
    &ToolSettings::ksRptMode, &ToolSettings::ksRptTimes,
};

}  // namespace

std::string captureToolSettings() {
    std::string line;
    for (const IntField field : intFields)
        line += std::to_string((toolSettings.*field).load()) + ',';
    line += keyCodeText(keySpamTargets.first.load()) + ',';
    line += targetsText();
    line += keySpamTargets.chord.load() ? ",1" : ",0";
    return line;
}

void applyToolSettings(std::string_view line) {
    std::array<std::string_view, 20> places;
    const auto fields = splitInto(places, line, ',');
    if (fields.size() < 18) return;
    for (std::size_t i = 0; i < std::size(intFields); ++i) {
        const auto number = toInt(fields[i]);
        if (!number) return;
        (toolSettings.*intFields[i]).exchange(number.value);
    }
    const auto key = toKeyCode(fields[17]);
    if (!key) return;
    keySpamTargets.first.exchange(*key);
    if (fields.size() == 20) {
        setTargets(fields[18]);
        keySpamTargets.chord.exchange(fields[19] == "1");
    } else {
        setOnlyTarget(*key);
    }
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
    keySpamTargets.first.exchange(32);
    setOnlyTarget(32);
}

}  // namespace ravelin
