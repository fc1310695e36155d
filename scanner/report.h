// The scan report as the console prints it.
#pragma once

#include <string>

#include "scanner/scan.h"

namespace MacroScan {

// One line of JSON without blanks or a line break: {"level":...,"matches":[{"id":...,
// "severity":...,"atSec":...},...]}, the matches in the order of the result. Times have six
// significant digits, no trailing zeros and a point in every locale.
std::string ReportJson(const ScanResult& result);

}  // namespace MacroScan
