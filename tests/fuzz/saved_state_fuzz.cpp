// What a panel's process takes for a whole status and for the lines of a whole session, against
// another reader of the same rules; and a status that is cut anywhere is none.
#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <set>
#include <string>

#include "app/saved_state.h"
#include "input/status.h"
#include "tests/support/engine_reset.h"
#include "tests/support/reference_settings.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

// An escaped second half of a surrogate pair without the first, which the other reader lets pass.
bool mayHoldHalfAPair(const std::string& text) {
    static const std::regex second(R"(\\u[dD][c-fC-F])");
    static const std::regex first(R"(\\u[dD][89abAB][0-9a-fA-F]{2})");
    for (std::sregex_iterator at(text.begin(), text.end(), second), end; at != end; ++at) {
        const auto place = static_cast<std::size_t>(at->position());
        if (place < 6 || !std::regex_match(text.substr(place - 6, 6), first)) return true;
    }
    return false;
}

// Nothing when the two readers may differ: in a key that stands there twice, a byte order mark, or
// half a surrogate pair.
std::optional<bool> referenceIsWhole(const std::string& text) {
    if (text.starts_with("\xEF\xBB\xBF") || mayHoldHalfAPair(text)) return std::nullopt;
    rapidjson::Document status;
    status.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag |
                 rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
    if (status.HasParseError() || !status.IsObject() || text.size() > 65536) return false;
    std::set<std::string> keys;
    for (rapidjson::SizeType i = 0; i < status.MemberCount(); ++i) {
        const auto& key = (status.MemberBegin() + static_cast<std::ptrdiff_t>(i))->name;
        if (!keys.emplace(key.GetString(), key.GetStringLength()).second) return std::nullopt;
    }
    const auto has = [&](const char* key, auto fits) {
        return status.HasMember(key) && fits(status[key]);
    };
    const auto isFlag = [](const rapidjson::Value& value) { return value.IsBool(); };
    return has("state", [](const auto& value) { return value.IsString(); }) &&
           has("autoClicking", isFlag) && has("keySpamming", isFlag) &&
           has("keySpamTargets", [](const auto& value) { return value.IsArray(); });
}

bool holdsNumbers(const std::string& line, std::size_t count) {
    auto fields = test::referenceSplit(line, ',');
    if (fields.size() < count) return false;
    fields.resize(std::min(fields.size(), std::size_t{36}));
    return std::all_of(fields.begin(), fields.end(), [](const std::string& field) {
        return field.empty() || test::standardDouble(field);
    });
}

std::optional<SavedLines> referenceLinesOf(const std::string& bytes) {
    const auto lines = test::referenceLines(bytes, LoneReturn::kept);
    if (lines.size() < 3 || !lines[0].starts_with("SETTINGS:") || !lines[1].starts_with("CURRENT:"))
        return std::nullopt;
    SavedLines saved{lines[0].substr(9), ""};
    const auto current = test::standardInt(lines[1].substr(8));
    if (!holdsNumbers(saved.session, 36) || !current) return std::nullopt;
    std::int64_t profile = -1;
    for (std::size_t i = 2; i < lines.size(); ++i) {
        if (!lines[i].starts_with("PROFILE:") || ++profile != current.value) continue;
        if (i + 1 == lines.size() || !lines[i + 1].starts_with("PROFILESETTINGS:")) return saved;
        saved.profile = lines[i + 1].substr(16);
        return holdsNumbers(saved.profile, 20) ? std::optional(saved) : std::nullopt;
    }
    return std::nullopt;
}

void checkCutStatus(std::size_t length) {
    static const std::string whole = [] {
        test::resetEngine();
        return getTrackerStatus({"panel-ui"});
    }();
    check(isWholeStatus(whole));
    check(!isWholeStatus(whole.substr(0, length % whole.size())));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto whole = referenceIsWhole(bytes);
    if (whole) check(isWholeStatus(bytes) == *whole);

    auto lines = linesOf(bytes);
    check(readSavedLines(lines) == referenceLinesOf(bytes));

    if (size >= 2) checkCutStatus(data[0] * std::size_t{256} + data[1]);
    return 0;
}
