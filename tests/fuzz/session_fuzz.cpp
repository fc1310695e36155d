// Session files are read as the plain reader reads them, and a session that was read is the same
// after it was written and read once more.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "persistence/session_text.h"
#include "tests/support/reference_reader.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

std::optional<Session> read(const std::string& bytes) {
    auto lines = linesOf(bytes);
    return readSession(lines);
}

bool same(const Session& a, const Session& b) {
    return a.settingsLine == b.settingsLine && a.current == b.current &&
           std::equal(a.profiles.begin(), a.profiles.end(), b.profiles.begin(), b.profiles.end(),
                      test::sameProfile);
}

// Rounded to six digits, the smallest numbers may fall out of range.
bool survivesRounding(const Session& session) {
    for (const auto& profile : session.profiles)
        for (const auto& event : profile.events)
            if (event.time != 0 && std::abs(event.time) < 3e-308) return false;
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto expected = test::referenceSession(bytes);
    const auto session = read(bytes);
    check(session.has_value() == expected.has_value());
    if (!session) return 0;
    check(same(*session, *expected));
    if (!survivesRounding(*session)) return 0;
    const auto text = sessionText(*session);
    const auto again = read(text);
    check(again.has_value());
    check(sessionText(*again) == text);
    return 0;
}
