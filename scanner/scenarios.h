// The risky scenarios that the scanner knows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scanner/key_stream.h"
#include "scanner/seq_result.h"

namespace MacroScan {

// Finds its pattern in the presses of a macro.
using Detector = std::function<SeqResult(const std::vector<KeyEv>&)>;

inline constexpr char severityDanger[] = "DANGER";
inline constexpr char severityCaution[] = "CAUTION";

struct Scenario {
    std::string id;  // short lower-case key, used in the report
    std::string severity;
    std::string title;
    std::string description;  // one or two sentences for the user
    Detector detect;
};

// The one table, built on first use by whichever thread comes first and never changed afterwards.
const std::vector<Scenario>& Scenarios();

}  // namespace MacroScan
