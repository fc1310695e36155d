#include "persistence/event_line.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "support/decimal_digits.h"
#include "support/number_text.h"
#include "support/real_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

// What follows reads the lines that the program writes, and what is like them: plain decimal
// numbers of moderate length and nothing else. It gives up on whatever is unusual and never
// misreads it, so that the standard conversions see only the rest.

// Where one character stands in a line, a bit for each place.
std::uint64_t placesOf(char wanted, std::string_view line) {
    const auto in16 = [&line, wanted](std::size_t from) {
        __m128i characters;
        std::memcpy(&characters, line.data() + from, sizeof characters);
        const __m128i found = _mm_cmpeq_epi8(characters, _mm_set1_epi8(wanted));
        return std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(found))} << from;
    };
    // The three parts overlap unless the line is of the greatest length.
    const std::size_t last = line.size() - 16;
    return in16(0) | in16(std::min<std::size_t>(last, 16)) | in16(last);
}
constexpr std::size_t shortestPlainLine = 16;
constexpr std::size_t longestPlainLine = 48;

// Takes the first place out of a set and returns it.
std::size_t takePlace(std::uint64_t& places) {
    const auto place = static_cast<std::size_t>(std::countr_zero(places));
    places &= places - 1;
    return place;
}

// Runs of digits in a line whose bounds are known. Nothing here waits for the run before or
// branches on what varies from line to line; faults are gathered, to be looked at once in the end.
class DigitRuns {
  public:
    explicit DigitRuns(std::string_view line) : line_(line.data()) {}

    // Every run so far was one to eight digits and nothing else.
    bool sound() const { return faults_ == 0; }
    void require(bool holds) { faults_ |= holds ? 0 : 1; }

    // One run as eight bytes from 0 to 9, behind zeros. The line goes on for eight characters from
    // `begin` on.
    std::uint64_t from(std::size_t begin, std::size_t end) {
        return (eightAt(begin) ^ zeros) << shiftFor(begin, end);
    }
    // The same where eight characters stand in front of `end`.
    std::uint64_t upTo(std::size_t begin, std::size_t end) {
        const unsigned shift = shiftFor(begin, end);
        return (eightAt(end - 8) ^ zeros) >> shift << shift;
    }

    // The numbers that four runs make.
    std::array<std::int32_t, 4> join(const std::array<std::uint64_t, 4>& runs) {
        const __m128i first = twoRuns(runs[0], runs[1]);
        const __m128i second = twoRuns(runs[2], runs[3]);
        const __m128i above9 = _mm_subs_epu8(_mm_max_epu8(first, second), _mm_set1_epi8(9));
        const int sound = _mm_movemask_epi8(_mm_cmpeq_epi8(above9, _mm_setzero_si128()));
        faults_ |= static_cast<std::uint64_t>(sound ^ 0xFFFF);
        // Neighbours are joined by twos, fours and all.
        const __m128i fours = _mm_packs_epi32(joinFours(first), joinFours(second));
        std::array<std::int32_t, 4> numbers{};
        const __m128i all = _mm_madd_epi16(fours, _mm_set1_epi32(0x00012710));
        std::memcpy(numbers.data(), &all, sizeof all);
        return numbers;
    }

  private:
    static constexpr std::uint64_t zeros = 0x3030303030303030;

    // Not by way of the memory, where a load would wait for the two smaller stores that it spans.
    static __m128i twoRuns(std::uint64_t first, std::uint64_t second) {
        return _mm_unpacklo_epi64(_mm_cvtsi64_si128(static_cast<long long>(first)),
                                  _mm_cvtsi64_si128(static_cast<long long>(second)));
    }

    static __m128i joinFours(__m128i digits) {
        const __m128i tens =
            _mm_mullo_epi16(_mm_and_si128(digits, _mm_set1_epi16(0x00FF)), _mm_set1_epi16(10));
        const __m128i pairs = _mm_add_epi16(tens, _mm_srli_epi16(digits, 8));
        return _mm_madd_epi16(pairs, _mm_set1_epi32(0x00010064));
    }

    std::uint64_t eightAt(std::size_t place) const {
        std::uint64_t characters = 0;
        std::memcpy(&characters, line_ + place, sizeof characters);
        return characters;
    }

    // How far eight characters move to leave those of the run.
    unsigned shiftFor(std::size_t begin, std::size_t end) {
        const std::size_t length = end - begin;
        faults_ |= (length - 1) & ~std::uint64_t{7};
        return static_cast<unsigned>(64 - length * 8) % 64;
    }

    const char* line_;
    std::uint64_t faults_ = 0;
};

std::int32_t negatedIf(bool minus, std::int32_t value) {
    return minus ? -value : value;
}

// The last four fields, where they are not all zero.
bool readRest(std::string_view line, std::size_t yEnd, std::uint64_t commas, DigitRuns& runs,
              UnifiedEvent& event) {
    const std::size_t flagsEnd = takePlace(commas);
    const std::size_t vkEnd = takePlace(commas);
    if (commas == 0 || yEnd < 8 || line.back() == ',') return false;
    const std::size_t downEnd = takePlace(commas);
    const bool minus = line[downEnd + 1] == '-';
    const auto numbers = runs.join({runs.upTo(yEnd + 1, flagsEnd), runs.upTo(flagsEnd + 1, vkEnd),
                                    runs.upTo(vkEnd + 1, downEnd),
                                    runs.upTo(downEnd + 1 + (minus ? 1 : 0), line.size())});
    event.flags = static_cast<std::uint32_t>(numbers[0]);
    event.vk = static_cast<std::uint32_t>(numbers[1]);
    event.down = numbers[2] != 0 ? 1 : 0;
    event.wheel = negatedIf(minus, numbers[3]);
    return true;
}

bool parsePlainLine(std::string_view line, UnifiedEvent& event) {
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    if (line.size() < shortestPlainLine || line.size() > longestPlainLine) return false;
    if (line[1] != ',' || line[0] < '0' || line[0] > '9') return false;
    std::uint64_t commas = placesOf(',', line) & ~std::uint64_t{2};
    const auto point = static_cast<std::size_t>(std::countr_zero(placesOf('.', line)));
    const std::size_t timeEnd = takePlace(commas);
    const std::size_t xEnd = takePlace(commas);
    if (commas == 0) return false;
    const std::size_t yEnd = takePlace(commas);
    // Room for a minus and eight digits of y is room for every run in front of it.
    if (xEnd + 10 > line.size()) return false;
    const bool xMinus = line[timeEnd + 1] == '-';
    const bool yMinus = line[xEnd + 1] == '-';

    DigitRuns runs(line);
    std::size_t places = 0;
    std::uint64_t fraction = 0;
    if (point < timeEnd) {
        places = timeEnd - point - 1;
        fraction = runs.from(point + 1, timeEnd);
    }
    const auto numbers = runs.join({runs.from(2, std::min(point, timeEnd)), fraction,
                                    runs.from(timeEnd + 1 + (xMinus ? 1 : 0), xEnd),
                                    runs.from(xEnd + 1 + (yMinus ? 1 : 0), yEnd)});
    // Up to fifteen digits and the power of ten are exact as doubles, so the one division rounds as
    // the standard conversion does.
    const double unit = powersOfTen[places % std::size(powersOfTen)];
    const auto digits =
        static_cast<std::int64_t>(numbers[0]) * static_cast<std::int64_t>(unit) + numbers[1];
    runs.require(digits < 1000000000000000);
    event.kind = line[0] - '0';
    event.time = static_cast<double>(digits) / unit;
    event.x = negatedIf(xMinus, numbers[2]);
    event.y = negatedIf(yMinus, numbers[3]);
    // Most events, all mouse moves among them, end in zeros.
    if (line.substr(yEnd) != ",0,0,0,0" && !readRest(line, yEnd, commas, runs, event)) return false;
    return runs.sound();
}

template <class T>
bool convert(const Converted<T>& converted, T& value) {
    value = converted.value;
    return static_cast<bool>(converted);
}

// Whatever the standard conversions read.
bool parseAnyLine(std::string_view line, UnifiedEvent& event) {
    std::array<std::string_view, 8> places;
    const auto fields = splitInto(places, line, ',');
    if (fields.size() < places.size()) return false;
    std::int32_t vk = 0;
    std::int32_t down = 0;
    const bool complete =
        convert(toInt(fields[0]), event.kind) && convert(toDouble(fields[1]), event.time) &&
        convert(toLong(fields[2]), event.x) && convert(toLong(fields[3]), event.y) &&
        convert(toUnsignedLong(fields[4]), event.flags) && convert(toInt(fields[5]), vk) &&
        convert(toInt(fields[6]), down) && convert(toInt(fields[7]), event.wheel);
    event.vk = static_cast<std::uint32_t>(vk);
    event.down = down != 0 ? 1 : 0;
    return complete;
}

}  // namespace

[[gnu::flatten]] bool appendEvent(EventList& events, std::string_view line) {
    // Each way with an event of its own: the plain one never leaves the registers.
    if (UnifiedEvent event; parsePlainLine(line, event)) {
        events.append(event);
        return true;
    }
    UnifiedEvent event;
    if (!parseAnyLine(line, event)) return false;
    events.append(event);
    return true;
}

char* writeEventLine(char* out, const UnifiedEvent& event) {
    out = writeInteger(out, event.kind);
    *out++ = ',';
    out = writeReal(out, event.time);
    *out++ = ',';
    out = writeInteger(out, event.x);
    *out++ = ',';
    out = writeInteger(out, event.y);
    *out++ = ',';
    out = writeInteger(out, event.flags);
    *out++ = ',';
    out = writeInteger(out, static_cast<std::int32_t>(event.vk));
    *out++ = ',';
    *out++ = event.down != 0 ? '1' : '0';
    *out++ = ',';
    out = writeInteger(out, event.wheel);
    *out++ = '\r';
    *out++ = '\n';
    return out;
}

void writeEvents(BlockWriter& out, const EventList& events) {
    for (const auto& event : events)
        out.filledTo(writeEventLine(out.room(eventLineRoom), event));
}

}  // namespace ravelin
