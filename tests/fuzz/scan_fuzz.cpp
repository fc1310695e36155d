// Any bytes as a macro: the scan must survive it, agree with its naive twin, and keep its order.
#include <algorithm>
#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "scanner/report.h"
#include "scanner/scan.h"
#include "tests/unit/scanner/naive_scanner.h"

namespace {

// The keys and modifiers of the scenarios, so that short inputs already reach them.
constexpr std::uint8_t knownKeys[] = {8,   9,   13,  27,  44,  46,  115, 117, 'A', 'B', 'C',
                                      'G', 'I', 'L', 'R', 'S', 'T', 'V', 'W', 'X', 'Y', 16,
                                      17,  18,  91,  92,  160, 161, 162, 163, 164, 165};

class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    // The next bytes as a value; zeros stand for what is missing.
    template <class T>
    T take() {
        T value{};
        const std::size_t count = std::min(sizeof value, left_);
        std::memcpy(&value, data_, count);
        data_ += count;
        left_ -= count;
        return value;
    }

  private:
    const std::uint8_t* data_;
    std::size_t left_;
};

// One byte says what an event is made of: release or press, a known key or any code, a step of
// half seconds or any time, a key event or any kind.
ravelin::EventList decode(Bytes bytes) {
    ravelin::EventList events;
    double time = 0;
    while (!bytes.empty()) {
        const auto shape = bytes.take<std::uint8_t>();
        ravelin::UnifiedEvent event;
        event.kind = (shape & 0xF0) == 0xF0 ? bytes.take<std::int8_t>() : 3;
        event.down = (shape & 1) == 0 ? 1 : 0;
        event.vk = (shape & 14) == 14
                       ? bytes.take<std::uint32_t>()
                       : knownKeys[bytes.take<std::uint8_t>() % std::size(knownKeys)];
        time = (shape & 0x70) == 0x70 ? bytes.take<double>()
                                      : time + 0.5 * static_cast<double>((shape >> 4) & 7);
        event.time = time;
        events.append(event);
    }
    return events;
}

bool inOrder(const MacroScan::Match& a, const MacroScan::Match& b) {
    if (a.severity != b.severity) return a.severity == "DANGER";
    return std::is_lteq(std::weak_order(a.atSec, b.atSec));
}

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ravelin::EventList events = decode({data, size});
    const MacroScan::ScanResult result = MacroScan::Scan(events);

    // Times are compared bit by bit: a time that is not a number is not equal to itself.
    std::vector<std::pair<std::string, std::uint64_t>> found;
    std::vector<std::pair<std::string, std::uint64_t>> expected;
    for (const auto& match : result.matches) {
        found.emplace_back(match.id, std::bit_cast<std::uint64_t>(match.atSec));
    }
    for (const auto& [id, atSec] : naive::scan(events)) {
        expected.emplace_back(id, std::bit_cast<std::uint64_t>(atSec));
    }
    std::sort(found.begin(), found.end());
    require(found == expected);

    for (std::size_t i = 1; i < result.matches.size(); ++i) {
        require(inOrder(result.matches[i - 1], result.matches[i]));
    }
    const bool danger = std::any_of(result.matches.begin(), result.matches.end(),
                                    [](const auto& match) { return match.severity == "DANGER"; });
    require(result.level == (danger ? "danger" : found.empty() ? "none" : "caution"));

    const std::string report = MacroScan::ReportJson(result);
    require(report.find_first_of(" \r\n") == std::string::npos);
    return 0;
}
