#include "persistence/session_settings.h"

#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <span>

#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "persistence/key_codes.h"
#include "support/number_text.h"
#include "support/real_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

// A field that is written for the place it takes and ignored on reading.
struct Placeholder {};

// The fields one after another, in the groups that they are read in.
template <class Visitor>
bool visitClickerAndOptions(Visitor&& visit) {
    ToolSettings& s = toolSettings;
    return visit(s.sh) && visit(s.sm) && visit(s.ss) && visit(s.sms) && visit(s.sbtn) &&
           visit(s.stype) && visit(s.rptMode) && visit(s.rptTimes) && visit(s.locMode) &&
           visit(s.fixedX) && visit(s.fixedY) && visit(s.tmv) && visit(s.tclk) && visit(s.tscr) &&
           visit(s.tkey) && visit(s.trel) && visit(s.tspd) && visit(s.tloop) && visit(s.tloopMs) &&
           visit(hotkeys.rec) && visit(hotkeys.play) && visit(Placeholder{}) &&
           visit(hotkeys.autoClicker);
}

template <class Visitor>
bool visitKeySpammer(Visitor&& visit) {
    ToolSettings& s = toolSettings;
    return visit(s.ksh) && visit(s.ksm) && visit(s.kss) && visit(s.ksms) && visit(s.ksRptMode) &&
           visit(s.ksRptTimes) && visit(hotkeys.keySpam) && visit(keySpamTargets.first);
}

template <class Visitor>
bool visitHoldFlags(Visitor&& visit) {
    return visit(toolSettings.holdAuto) && visit(toolSettings.holdKeySpam);
}

class FieldWriter {
  public:
    explicit FieldWriter(std::string& line) : line_(line) {}

    bool operator()(const std::atomic<std::int32_t>& field) {
        return text(std::to_string(field.load()));
    }
    bool operator()(const std::atomic<std::uint32_t>& code) {
        return text(keyCodeText(code.load()));
    }
    bool operator()(const std::atomic<float>& field) {
        return text(realText(static_cast<double>(field.load())));
    }
    bool operator()(const std::atomic<bool>& flag) { return text(flag.load() ? "1" : "0"); }
    bool operator()(Placeholder) { return text("0"); }

    bool text(std::string_view piece) {
        if (!line_.empty()) line_ += ',';
        line_ += piece;
        return true;
    }

  private:
    std::string& line_;
};

// Stores the fields one by one; false from the first one on that is no number.
class FieldReader {
  public:
    explicit FieldReader(std::span<const std::string_view> fields) : fields_(fields) {}

    bool operator()(std::atomic<std::int32_t>& field) { return store(field, toInt(take())); }
    bool operator()(std::atomic<float>& field) { return store(field, toFloat(take())); }
    bool operator()(std::atomic<std::uint32_t>& code) {
        const auto value = toKeyCode(take());
        if (value) code.exchange(*value);
        return value.has_value();
    }
    bool operator()(std::atomic<bool>& flag) {
        flag.exchange(take() == "1");
        return true;
    }
    bool operator()(Placeholder) {
        take();
        return true;
    }

  private:
    template <class T>
    static bool store(std::atomic<T>& field, const Converted<T>& converted) {
        if (converted) field.exchange(converted.value);
        return static_cast<bool>(converted);
    }

    std::string_view take() {
        const auto field = fields_.front();
        fields_ = fields_.subspan(1);
        return field;
    }

    std::span<const std::string_view> fields_;
};

}  // namespace

std::string sessionSettingsLine() {
    std::string line;
    FieldWriter writer(line);
    visitClickerAndOptions(writer);
    visitKeySpammer(writer);
    writer.text(targetsText());
    writer(keySpamTargets.chord);
    visitHoldFlags(writer);
    writer(hotkeys.unlock);
    return line;
}

void applySessionSettings(std::string_view line) {
    std::array<std::string_view, sessionFieldCount> places;
    const std::span<const std::string_view> fields = splitInto(places, line, ',');
    if (fields.size() < 23) return;
    const float speed = toolSettings.tspd.load();
    visitClickerAndOptions(FieldReader(fields));
    // The conversion takes "inf" and "nan", which no JSON text can hold.
    if (!std::isfinite(toolSettings.tspd.load())) toolSettings.tspd.exchange(speed);
    if (fields.size() >= 31) visitKeySpammer(FieldReader(fields.subspan(23)));
    if (fields.size() >= 33) {
        setTargets(fields[31]);
        keySpamTargets.chord.exchange(fields[32] == "1");
    } else {
        setOnlyTarget(keySpamTargets.first.load());
    }
    if (fields.size() >= 35) visitHoldFlags(FieldReader(fields.subspan(33)));
    if (fields.size() >= 36) FieldReader(fields.subspan(35))(hotkeys.unlock);
}

}  // namespace ravelin
