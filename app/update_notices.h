// What the page is told about updates while they happen: scripts for it to run.
#pragma once

#include <cstdint>
#include <string>

#include "updater/update_check.h"

namespace ravelin {

std::string updateAvailableScript(const UpdateCheckResult& result);
std::string updateProgressScript(std::uint64_t bytesDone, std::uint64_t bytesTotal);
std::string updateInstallingScript();

}  // namespace ravelin
