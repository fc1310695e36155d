#include "app/pipe_dispatch.h"

#include <string>

#include "app/pipe_message.h"
#include "input/capture.h"
#include "input/engine_state.h"
#include "input/key_spammer.h"
#include "input/platform.h"
#include "input/requests.h"
#include "input/tool_settings.h"

namespace ravelin {
namespace {

using Value = const std::string&;

void hover(Value value) {
    engine.panelHover.exchange(value == "1");
}

void reassign(Value slot) {
    // The unlock key is chosen in the main window only, where locking oneself out shows.
    if (slot != "unlock") reassignKey(slot);
    platform::signal(platform::Event::command);
}

struct Row {
    std::string_view method;
    void (*act)(Value);
};

constexpr Row table[] = {
    {"updateSpammer", [](Value text) { updateSpammer(text); }},
    {"updateKeySpam", [](Value text) { updateKeySpam(text); }},
    {"startSpammer", [](Value) { postRequest(requests.clickerStart); }},
    {"stopSpammer", [](Value) { postRequest(requests.clickerStop); }},
    {"startKeySpam", [](Value) { postRequest(requests.keySpamStart); }},
    {"stopKeySpam", [](Value) { postRequest(requests.keySpamStop); }},
    {"removeKeySpamTarget", [](Value index) { removeKeySpamTarget(index); }},
    {"setKeySpamChordMode", [](Value value) { setKeySpamChordMode(value); }},
    {"panelHover", hover},
    {"reassignKey", reassign},
};

void dispatch(std::string_view bytes) {
    const auto message = parsePipeMessage(bytes);
    if (!message) return;
    for (const Row& row : table)
        if (row.method == message->method) row.act(message->value);
}

}  // namespace

void dispatchPipeMessage(std::string_view bytes) noexcept {
    try {
        dispatch(bytes);
    } catch (...) {
        // A value that is no number loses its message; the server serves the next one.
        return;
    }
}

}  // namespace ravelin
