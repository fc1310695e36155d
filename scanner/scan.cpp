#include "scanner/scan.h"

#include <algorithm>
#include <compare>
#include <map>
#include <utility>

#include "scanner/key_stream.h"
#include "scanner/scenarios.h"

namespace MacroScan {
namespace {

using MatchesById = std::map<std::string, Match>;

MatchesById detectAll(const std::vector<KeyEv>& keys) {
    MatchesById found;
    for (const Scenario& scenario : Scenarios()) {
        const SeqResult result = scenario.detect(keys);
        if (!result.matched) continue;
        found[scenario.id] = {scenario.id, scenario.severity, scenario.title, scenario.description,
                              result.atSec};
    }
    return found;
}

void dropRedundant(MatchesById& found) {
    static const std::map<std::string, std::vector<std::string>> redundantBeside = {
        {"copy-paste-send", {"copy-paste"}},
        {"run-command", {"system-keys"}},
        {"start-launch", {"system-keys"}},
    };
    for (const auto& [id, redundantIds] : redundantBeside) {
        if (!found.contains(id)) continue;
        for (const std::string& redundant : redundantIds)
            found.erase(redundant);
    }
}

// A macro file may give "nan" as a time, which no plain comparison can order.
bool listedBefore(const Match& a, const Match& b) {
    if (a.severity != b.severity) return a.severity == severityDanger;
    return std::is_lt(std::weak_order(a.atSec, b.atSec));
}

std::string levelOf(const std::vector<Match>& matches) {
    if (matches.empty()) return "none";
    const bool danger = std::ranges::any_of(
        matches, [](const Match& match) { return match.severity == severityDanger; });
    return danger ? "danger" : "caution";
}

}  // namespace

ScanResult Scan(const ravelin::EventList& events) {
    MatchesById found = detectAll(BuildKeyEvents(events));
    dropRedundant(found);

    ScanResult result;
    for (auto& [id, match] : found)
        result.matches.push_back(std::move(match));
    std::ranges::stable_sort(result.matches, listedBefore);
    result.level = levelOf(result.matches);
    return result;
}

}  // namespace MacroScan
