// Counts a download against its limit and says when its progress is worth a report.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace ravelin {

// Gets the bytes received and, as far as known, the bytes to come in all; false stops the download.
using ProgressSink = std::function<bool(std::uint64_t bytesDone, std::uint64_t bytesTotal)>;

inline constexpr std::uint64_t downloadCap = 209715200;  // bytes, 200 MiB

// The number of a content-length header; 0, unknown, for what begins with no digit. What is too
// large to hold counts as the largest number.
std::uint64_t declaredLength(std::string_view header);

class DownloadMeter {
  public:
    // `declared` is the length that the server announced, 0 for unknown.
    explicit DownloadMeter(std::uint64_t declared) : declared_(declared) {}

    bool isTooLarge() const { return declared_ > downloadCap || received_ > downloadCap; }
    void add(std::uint64_t bytes) { received_ += bytes; }

    // At the first chunk, every 100 ms after that, and when everything announced has arrived. The
    // time, in milliseconds, is remembered when the answer is yes.
    bool isReportDue(std::uint64_t now);

    std::uint64_t received() const { return received_; }
    std::uint64_t declared() const { return declared_; }
    // Of a finished download: a server may have announced less than it sent, or nothing.
    std::uint64_t finalTotal() const { return received_ > declared_ ? received_ : declared_; }

  private:
    std::uint64_t declared_;
    std::uint64_t received_ = 0;
    std::optional<std::uint64_t> lastReport_;
};

}  // namespace ravelin
