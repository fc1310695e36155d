#include "persistence/event_line.h"

#include <array>
#include <charconv>
#include <cstdint>

#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

// Seven integers of up to eleven characters, the time, the commas and the line feed.
constexpr std::size_t longestLine = 7 * 11 + realTextSize + 8;

template <class T>
bool convert(const Converted<T>& converted, T& value) {
    value = converted.value;
    return static_cast<bool>(converted);
}

char* writeInt(char* out, std::int32_t value) {
    return std::to_chars(out, out + 11, value).ptr;
}

}  // namespace

bool parseEventLine(std::string_view line, UnifiedEvent& event) {
    std::array<std::string_view, 8> places;
    const auto fields = splitInto(places, line, ',');
    if (fields.size() < places.size()) return false;
    UnifiedEvent read;
    std::int32_t vk = 0;
    std::int32_t down = 0;
    const bool complete =
        convert(toInt(fields[0]), read.kind) && convert(toDouble(fields[1]), read.time) &&
        convert(toLong(fields[2]), read.x) && convert(toLong(fields[3]), read.y) &&
        convert(toUnsignedLong(fields[4]), read.flags) && convert(toInt(fields[5]), vk) &&
        convert(toInt(fields[6]), down) && convert(toInt(fields[7]), read.wheel);
    if (!complete) return false;
    read.vk = static_cast<std::uint32_t>(vk);
    read.down = down != 0 ? 1 : 0;
    event = read;
    return true;
}

void appendEventLine(std::string& text, const UnifiedEvent& event) {
    std::array<char, longestLine> line;
    char* out = writeInt(line.data(), event.kind);
    *out++ = ',';
    out = writeReal(out, event.time);
    *out++ = ',';
    out = writeInt(out, event.x);
    *out++ = ',';
    out = writeInt(out, event.y);
    *out++ = ',';
    out = std::to_chars(out, out + 11, event.flags).ptr;
    *out++ = ',';
    out = writeInt(out, static_cast<std::int32_t>(event.vk));
    *out++ = ',';
    *out++ = event.down != 0 ? '1' : '0';
    *out++ = ',';
    out = writeInt(out, event.wheel);
    *out++ = '\n';
    text.append(line.data(), out);
}

}  // namespace ravelin
