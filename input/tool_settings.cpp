#include "input/tool_settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <vector>

#include "persistence/profiles.h"
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

class ObjectText {
  public:
    void add(std::string_view key, std::int32_t value) { raw(key, std::to_string(value)); }
    void add(std::string_view key, bool value) { raw(key, value ? "true" : "false"); }
    void add(std::string_view key, float value) {
        // Six significant digits without trailing zeros, whatever the locale.
        char digits[32];
        const auto end =
            std::to_chars(digits, std::end(digits), value, std::chars_format::general, 6);
        raw(key, std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
    }
    std::string finish() { return text_ + '}'; }

  private:
    void raw(std::string_view key, std::string_view value) {
        text_ += text_.empty() ? '{' : ',';
        text_ += '"';
        text_ += key;
        text_ += "\":";
        text_ += value;
    }
    std::string text_;
};

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
    ObjectText json;
    json.add("sh", s.sh.load());
    json.add("sm", s.sm.load());
    json.add("ss", s.ss.load());
    json.add("sms", s.sms.load());
    json.add("sbtn", s.sbtn.load());
    json.add("stype", s.stype.load());
    json.add("rptMode", s.rptMode.load());
    json.add("rptTimes", s.rptTimes.load());
    json.add("locMode", s.locMode.load());
    json.add("fixedX", s.fixedX.load());
    json.add("fixedY", s.fixedY.load());
    json.add("tmv", s.tmv.load());
    json.add("tclk", s.tclk.load());
    json.add("tscr", s.tscr.load());
    json.add("tkey", s.tkey.load());
    json.add("trel", s.trel.load());
    json.add("tspd", s.tspd.load());
    json.add("tloop", s.tloop.load());
    json.add("tloopMs", s.tloopMs.load());
    json.add("ksh", s.ksh.load());
    json.add("ksm", s.ksm.load());
    json.add("kss", s.kss.load());
    json.add("ksms", s.ksms.load());
    json.add("ksRptMode", s.ksRptMode.load());
    json.add("ksRptTimes", s.ksRptTimes.load());
    json.add("holdAuto", s.holdAuto.load());
    json.add("holdKeySpam", s.holdKeySpam.load());
    return json.finish();
}

}  // namespace ravelin
