#include "app/pipe_message.h"

namespace ravelin {
namespace {

constexpr char separator = '|';

}  // namespace

std::string buildPipeMessage(std::string_view method, std::string_view value) {
    std::string message(method);
    message += separator;
    message += value;
    if (message.size() > pipeMessageLimit) message.resize(pipeMessageLimit);
    return message;
}

std::optional<PipeMessage> parsePipeMessage(std::string_view bytes) {
    const std::string_view cut = bytes.substr(0, pipeMessageLimit);
    const std::string_view text = cut.substr(0, cut.find('\0'));
    const auto place = text.find(separator);
    if (place == std::string_view::npos) return std::nullopt;
    return PipeMessage{std::string(text.substr(0, place)), std::string(text.substr(place + 1))};
}

}  // namespace ravelin
