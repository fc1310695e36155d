#include "persistence/key_codes.h"

#include <algorithm>
#include <array>

#include "input/tool_settings.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {

std::string keyCodeText(std::uint32_t code) {
    return std::to_string(static_cast<std::int32_t>(code));
}

std::optional<std::uint32_t> toKeyCode(std::string_view text) {
    const auto number = toInt(text);
    if (!number) return std::nullopt;
    return static_cast<std::uint32_t>(number.value);
}

std::string targetsText() {
    std::string text;
    const auto count = std::clamp(keySpamTargets.count.load(), 0, KeySpamTargets::cap);
    for (std::int32_t i = 0; i < count; ++i) {
        if (i > 0) text += '|';
        text += keyCodeText(keySpamTargets.keys[static_cast<std::size_t>(i)].load());
    }
    return text;
}

void setTargets(std::string_view text) {
    std::array<std::string_view, KeySpamTargets::cap> places;
    std::int32_t count = 0;
    for (const auto item : splitInto(places, text, '|')) {
        const auto code = toKeyCode(item);
        if (code) keySpamTargets.keys[static_cast<std::size_t>(count++)].exchange(*code);
    }
    keySpamTargets.count.exchange(count);
}

void setOnlyTarget(std::uint32_t code) {
    keySpamTargets.keys[0].exchange(code);
    keySpamTargets.count.exchange(1);
    keySpamTargets.chord.exchange(false);
}

}  // namespace ravelin
