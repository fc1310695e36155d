#include "updater/download_meter.h"

#include <charconv>
#include <limits>

namespace ravelin {

namespace {

constexpr std::uint64_t reportInterval = 100;  // milliseconds

}  // namespace

std::uint64_t declaredLength(std::string_view header) {
    std::uint64_t length = 0;
    const auto result = std::from_chars(header.data(), header.data() + header.size(), length);
    if (result.ec == std::errc::result_out_of_range)
        return std::numeric_limits<std::uint64_t>::max();
    return length;
}

bool DownloadMeter::isReportDue(std::uint64_t now) {
    const bool complete = received_ == declared_;
    if (lastReport_ && now - *lastReport_ < reportInterval && !complete) return false;
    lastReport_ = now;
    return true;
}

}  // namespace ravelin
