// Macro files are read as the plain reader reads them, however the bytes arrive, and what was read
// is read again as it is written.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "persistence/macro_file.h"
#include "tests/support/event_text.h"
#include "tests/support/reference_reader.h"

namespace {

using namespace ravelin;

std::string readInSmallBlocks(std::string_view text, Profile& out) {
    LineReader lines(
        [text](char* buffer, std::size_t size) mutable {
            const auto count = text.copy(buffer, std::min<std::size_t>(size, 5));
            text.remove_prefix(count);
            return count;
        },
        8);
    return readMacro(lines, out);
}

void check(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Profile expected;
    Profile read;
    Profile readInBlocks;
    auto lines = linesOf(bytes, LoneReturn::removed);
    const auto error = test::referenceMacro(bytes, expected);
    check(readMacro(lines, read) == error);
    check(readInSmallBlocks(bytes, readInBlocks) == error);
    check(test::sameProfile(read, expected));
    check(test::sameProfile(readInBlocks, expected));
    for (const auto& event : read.events) {
        // Rounded to six digits, the smallest numbers may fall out of range.
        if (event.time != 0 && std::abs(event.time) < 3e-308) continue;
        const auto once = test::eventLine(event);
        EventList again;
        check(appendEvent(again, std::string_view(once).substr(0, once.size() - 2)));
        check(once == test::eventLine(again[0]));
    }
    return 0;
}
