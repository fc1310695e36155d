// Messages of the pipe do what a plain model of them does, and nothing else.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

#include "app/pipe_dispatch.h"
#include "app/pipe_message.h"
#include "input/tool_settings.h"
#include "tests/support/engine_reset.h"
#include "tests/support/reference_actions.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

// The text of a message is what a C string in a buffer of 511 bytes would hold.
test::ReferenceState expected(std::string bytes, test::ReferenceState state, bool running) {
    static const std::set<std::string> slots = {"rec", "play", "auto", "keyspamhotkey",
                                                "keyspamtarget"};
    bytes.resize(std::min(bytes.size(), std::size_t{511}));
    const std::string text(bytes.c_str());
    const auto bar = text.find('|');
    if (bar == std::string::npos) return state;
    const auto method = text.substr(0, bar);
    const auto value = text.substr(bar + 1);
    if (test::referenceAction(state, method, value, running)) return state;
    if (method == "panelHover") state.hover = value == "1";
    if (method == "reassignKey") {
        state.commandSignalled = true;
        if (slots.count(value) > 0) state.armedSlot = value;
    }
    return state;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    // Most messages change nothing, and a reset costs more than a message.
    static bool changed = true;
    if (changed) test::resetEngine();
    const bool running = size % 2 == 0;
    engine.keySpamming = running;
    engine.panelHover = size % 3 == 0;
    keySpamTargets.count = static_cast<std::int32_t>(size % 4);
    for (std::uint32_t i = 0; i < 3; ++i)
        keySpamTargets.keys[i] = 65 + i;

    const auto before = test::liveState();
    dispatchPipeMessage(bytes);
    const auto after = test::liveState();
    check(after == expected(bytes, before, running));
    changed = after != before;

    // What was taken apart is put together the same, up to the limit.
    if (const auto message = parsePipeMessage(bytes)) {
        const auto built = buildPipeMessage(message->method, message->value);
        check(built.size() <= pipeMessageLimit && parsePipeMessage(built) == message);
    }
    return 0;
}
