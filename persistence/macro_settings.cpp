#include "persistence/macro_settings.h"

#include <algorithm>
#include <array>
#include <span>

#include "persistence/profiles.h"
#include "persistence/session_settings.h"
#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {
namespace {

using Fields = std::span<const std::string_view>;

// Where the fields of a profile's line stand in a session's, counted from 0.
struct Range {
    std::size_t inProfile;
    std::size_t inSession;
    std::size_t count;
};
constexpr Range clicker{0, 0, 11};
constexpr Range keySpammer{11, 23, 6};
constexpr std::size_t keyInProfile = 17;
constexpr std::size_t keyInSession = 30;
constexpr std::size_t targetsInProfile = 18;
constexpr std::size_t targetsInSession = 31;
constexpr std::size_t chordInProfile = 19;
constexpr std::size_t chordInSession = 32;

bool strictIntegers(Fields fields) {
    return std::all_of(fields.begin(), fields.end(), [](std::string_view field) {
        return static_cast<bool>(toStrictInt(field));
    });
}

void copy(Fields from, std::span<std::string_view> to) {
    std::copy(from.begin(), from.end(), to.begin());
}

std::string joined(Fields fields) {
    std::string line;
    for (const auto& field : fields) {
        if (&field != fields.data()) line += ',';
        line += field;
    }
    return line;
}

}  // namespace

std::string macroSettingsToProfileLine(std::string_view sessionLine) {
    std::array<std::string_view, sessionFieldCount> places;
    const Fields session = splitInto(places, sessionLine, ',');
    const std::string live = captureToolSettings();
    std::array<std::string_view, 20> profile;
    splitInto(profile, live, ',');

    const bool hasClicker = session.size() >= 23;
    const bool hasKeySpammer = session.size() >= 31;
    const bool hasTargets = session.size() >= 33;
    if (hasClicker) {
        const Fields fields = session.subspan(clicker.inSession, clicker.count);
        if (strictIntegers(fields)) copy(fields, profile);
    }
    if (hasKeySpammer) {
        const Fields fields = session.subspan(keySpammer.inSession, keySpammer.count);
        const auto key = session[keyInSession];
        if (strictIntegers(fields) && toStrictInt(key)) {
            copy(fields, std::span(profile).subspan(keySpammer.inProfile));
            profile[keyInProfile] = key;
        }
    }
    if (hasTargets) {
        profile[targetsInProfile] = session[targetsInSession];
        profile[chordInProfile] = session[chordInSession] == "1" ? "1" : "0";
    } else if (hasClicker) {
        profile[targetsInProfile] = profile[keyInProfile];
        profile[chordInProfile] = "0";
    }
    return joined(profile);
}

std::string profileToSessionLine(std::string_view profileLine) {
    if (profileLine.empty()) profileLine = defaultSettingsLine;
    std::array<std::string_view, 20> places;
    const Fields profile = splitInto(places, profileLine, ',');
    const std::string live = sessionSettingsLine();
    std::array<std::string_view, sessionFieldCount> session;
    splitInto(session, live, ',');
    if (profile.size() > keyInProfile) {
        const bool hasTargets = profile.size() == places.size();
        copy(profile.subspan(clicker.inProfile, clicker.count), session);
        copy(profile.subspan(keySpammer.inProfile, keySpammer.count),
             std::span(session).subspan(keySpammer.inSession));
        session[keyInSession] = profile[keyInProfile];
        session[targetsInSession] = profile[hasTargets ? targetsInProfile : keyInProfile];
        session[chordInSession] = hasTargets ? profile[chordInProfile] : "0";
    }
    return joined(session);
}

}  // namespace ravelin
