#include "persistence/event_line.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "support/number_text.h"
#include "support/real_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

// Seven integers of up to eleven characters, the time, the commas and the line end.
constexpr std::size_t longestLine = std::size_t{7} * 11 + realTextSize + 9;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr std::uint64_t tens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};

// The digits at the front of eight characters, looked at and converted all at once: the lengths of
// the numbers vary from line to line, so a loop over their digits would be mispredicted on most.
class EightDigits {
  public:
    explicit EightDigits(const char* text) {
        std::memcpy(&characters_, text, sizeof characters_);
        // '0' to '9' keep a high half of 3, and still do after adding 6 to the low half.
        const std::uint64_t others =
            ((characters_ & highHalves) ^ threes) | (((characters_ + sixes) & highHalves) ^ threes);
        count_ = static_cast<unsigned>(std::countr_zero(others)) / 8;
    }

    // 8 when all of them are digits.
    unsigned count() const { return count_; }

    // The number that less than eight digits make.
    std::uint64_t value() const {
        // The digits move to the end, behind zeros; then neighbours are joined by twos, fours and
        // all. Without a digit both shifts take the text away, where one of 64 would be undefined.
        std::uint64_t v = characters_ << 8 << (56 - count_ * 8) & 0x0F0F0F0F0F0F0F0F;
        v = v * 10 + (v >> 8);
        v = ((v & 0x00FF00FF00FF00FF) * 6553601) >> 16;
        return ((v & 0x0000FFFF0000FFFF) * 42949672960001) >> 32;
    }

  private:
    static constexpr std::uint64_t highHalves = 0xF0F0F0F0F0F0F0F0;
    static constexpr std::uint64_t threes = 0x3030303030303030;
    static constexpr std::uint64_t sixes = 0x0606060606060606;

    std::uint64_t characters_ = 0;
    unsigned count_ = 0;
};
static_assert(std::endian::native == std::endian::little);

// What follows reads the lines that the program writes: plain decimal numbers of moderate length
// and nothing else. It gives up on whatever is unusual and never misreads it, so that the standard
// conversions see only the rest. Each reader returns where it stopped, or null when it gave up; the
// place is passed on by value to stay in a register.

// Appends the digits that follow to a number. Too many wrap around; the caller counts them.
const char* readDigits(const char* at, const char* end, std::uint64_t& number) {
    if (end - at >= 8) {
        const EightDigits eight(at);
        if (eight.count() < 8) {
            number = number * tens[eight.count()] + eight.value();
            return at + eight.count();
        }
    }
    for (; at != end && isDigit(*at); ++at)
        number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

// An integer of at most nine digits, which fits into every type it is stored as.
const char* readLongInteger(const char* at, const char* end, std::int32_t& value) {
    const bool negative = at != end && *at == '-';
    const char* const start = negative ? at + 1 : at;
    std::uint64_t digits = 0;
    at = readDigits(start, end, digits);
    if (at == start || at - start > 9) return nullptr;
    value = static_cast<std::int32_t>(digits);
    if (negative) value = -value;
    return at;
}

const char* readInteger(const char* at, const char* end, std::int32_t& value) {
    // Most fields are a single digit.
    if (end - at >= 2 && isDigit(at[0]) && at[1] == ',') {
        value = *at - '0';
        return at + 1;
    }
    return readLongInteger(at, end, value);
}

// A number of at most fifteen digits with or without a fraction. Its digits and the power of ten
// are exact as doubles, so the one division rounds as the standard conversion does.
const char* readReal(const char* at, const char* end, double& value) {
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = at != end && *at == '-';
    const char* const start = negative ? at + 1 : at;
    std::uint64_t digits = 0;
    at = readDigits(start, end, digits);
    if (at == start) return nullptr;
    std::ptrdiff_t length = at - start;
    std::ptrdiff_t places = 0;
    if (at != end && *at == '.') {
        const char* const fraction = at + 1;
        at = readDigits(fraction, end, digits);
        places = at - fraction;
        length += places;
    }
    if (length > 15) return nullptr;
    const double magnitude =
        static_cast<double>(digits) / powersOfTen[static_cast<std::size_t>(places)];
    value = negative ? -magnitude : magnitude;
    return at;
}

// A comma and the number behind it, where the number before was read.
template <class T>
const char* readNext(const char* at, const char* end, T& value) {
    if (at == nullptr || at == end || *at != ',') return nullptr;
    if constexpr (std::is_same_v<T, double>) {
        return readReal(at + 1, end, value);
    } else {
        return readInteger(at + 1, end, value);
    }
}

// With all readers inlined, which takes a fifth off the time of reading a macro.
[[gnu::flatten]] bool parsePlainLine(std::string_view line, UnifiedEvent& event) {
    const char* const end = line.data() + line.size();
    const char* at = readInteger(line.data(), end, event.kind);
    at = readNext(at, end, event.time);
    at = readNext(at, end, event.x);
    at = readNext(at, end, event.y);
    if (at == nullptr) return false;
    std::int32_t flags = 0;
    std::int32_t vk = 0;
    std::int32_t down = 0;
    event.wheel = 0;
    // Most events, all mouse moves among them, end in zeros.
    if (std::string_view(at, static_cast<std::size_t>(end - at)) != ",0,0,0,0") {
        at = readNext(at, end, flags);
        at = readNext(at, end, vk);
        at = readNext(at, end, down);
        at = readNext(at, end, event.wheel);
        if (at != end) return false;
    }
    event.flags = static_cast<std::uint32_t>(flags);
    event.vk = static_cast<std::uint32_t>(vk);
    event.down = down != 0 ? 1 : 0;
    return true;
}

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
    if (parsePlainLine(line, event)) return true;
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
    *out++ = '\r';
    *out++ = '\n';
    text.append(line.data(), out);
}

}  // namespace ravelin
