#include "input/tool_settings.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "persistence/profiles.h"
#include "support/json_object.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

using IntField = std::atomic<std::int32_t> ToolSettings::*;

void storeFields(std::string_view text, std::span<const IntField> fields) {
    const auto pieces = splitList(text, ',');
    if (pieces.size() < fields.size()) return;
    for (std::size_t i = 0; i < fields.size(); ++i)
        (toolSettings.*fields[i]).exchange(toIntOrThrow(pieces[i]));
    syncCurrentProfile();
}

}  // namespace

double intervalMs(std::int32_t hours, std::int32_t minutes, std::int32_t seconds,
                  std::int32_t milliseconds) {
    return std::ceil(
        std::max(1.0, minutes * 60000.0 + hours * 3600000.0 + seconds * 1000.0 + milliseconds));
}

std::uint32_t waitMs(double interval) {
    constexpr double longest = 4294967294.0;  // one more would be the wait without end
    return static_cast<std::uint32_t>(std::min(interval, longest));
}

void updateSpammer(std::string_view text) {
    static constexpr IntField fields[] = {
        &ToolSettings::sh,      &ToolSettings::sm,       &ToolSettings::ss,
        &ToolSettings::sms,     &ToolSettings::sbtn,     &ToolSettings::stype,
        &ToolSettings::rptMode, &ToolSettings::rptTimes, &ToolSettings::locMode};
    storeFields(text, fields);
}

void updateKeySpam(std::string_view text) {
    static constexpr IntField fields[] = {&ToolSettings::ksh,       &ToolSettings::ksm,
                                          &ToolSettings::kss,       &ToolSettings::ksms,
                                          &ToolSettings::ksRptMode, &ToolSettings::ksRptTimes};
    storeFields(text, fields);
}

std::string getSettings() {
    const ToolSettings& s = toolSettings;
    return JsonObject()
        .number("sh", s.sh.load())
        .number("sm", s.sm.load())
        .number("ss", s.ss.load())
        .number("sms", s.sms.load())
        .number("sbtn", s.sbtn.load())
        .number("stype", s.stype.load())
        .number("rptMode", s.rptMode.load())
        .number("rptTimes", s.rptTimes.load())
        .number("locMode", s.locMode.load())
        .number("fixedX", s.fixedX.load())
        .number("fixedY", s.fixedY.load())
        .flag("tmv", s.tmv.load())
        .flag("tclk", s.tclk.load())
        .flag("tscr", s.tscr.load())
        .flag("tkey", s.tkey.load())
        .flag("trel", s.trel.load())
        .number("tspd", s.tspd.load())
        .flag("tloop", s.tloop.load())
        .number("tloopMs", s.tloopMs.load())
        .number("ksh", s.ksh.load())
        .number("ksm", s.ksm.load())
        .number("kss", s.kss.load())
        .number("ksms", s.ksms.load())
        .number("ksRptMode", s.ksRptMode.load())
        .number("ksRptTimes", s.ksRptTimes.load())
        .flag("holdAuto", s.holdAuto.load())
        .flag("holdKeySpam", s.holdKeySpam.load())
        .finish();
}

}  // namespace ravelin
