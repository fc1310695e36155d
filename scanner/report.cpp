#include "scanner/report.h"

#include <array>
#include <charconv>
#include <string_view>

namespace MacroScan {
namespace {

constexpr int significantDigits = 6;

void appendNumber(std::string& out, double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::general, significantDigits)
                         .ptr;
    out.append(digits.data(), end);
}

// Ids, severities and levels are plain ASCII without quotes or backslashes: nothing to escape.
void appendMember(std::string& out, std::string_view name, std::string_view value) {
    out.append("\"").append(name).append("\":\"").append(value).append("\"");
}

}  // namespace

std::string ReportJson(const ScanResult& result) {
    std::string out = "{";
    appendMember(out, "level", result.level);
    out += ",\"matches\":[";
    for (const Match& match : result.matches) {
        if (&match != &result.matches.front()) out += ',';
        out += '{';
        appendMember(out, "id", match.id);
        out += ',';
        appendMember(out, "severity", match.severity);
        out += ",\"atSec\":";
        appendNumber(out, match.atSec);
        out += '}';
    }
    out += "]}";
    return out;
}

}  // namespace MacroScan
