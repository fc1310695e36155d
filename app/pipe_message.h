// What a child panel's process sends to the main process: the name of a method and the value for
// it, with "|" between them, as one message of the pipe.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ravelin {

// The server reads no more of a message.
inline constexpr std::size_t pipeMessageLimit = 511;

// Cut at the limit.
std::string buildPipeMessage(std::string_view method, std::string_view value);

struct PipeMessage {
    std::string method;
    std::string value;
    bool operator==(const PipeMessage&) const = default;
};

// The bytes up to the first zero and the limit, split at the first "|". Nothing without one.
std::optional<PipeMessage> parsePipeMessage(std::string_view bytes);

}  // namespace ravelin
